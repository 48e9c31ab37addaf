#include "listening/VoiceController.h"
#include "platform/Platform.h"

#include <QCoreApplication>

#include <memory>

namespace brivandel {

namespace {

// A routine of the application object's end deletes it: while Qt's event dispatcher is still there, which
// what the platform holds needs. A function's static would outlive both.
struct SharedVoiceController {
    std::unique_ptr<Platform> platform = makePlatform({});
    VoiceController controller{*platform};
};

std::unique_ptr<SharedVoiceController>& instance() {
    static std::unique_ptr<SharedVoiceController> shared;
    return shared;
}

SharedVoiceController& sharedInstance() {
    if (!instance()) {
        instance() = std::make_unique<SharedVoiceController>();
        qAddPostRoutine([] { instance().reset(); });
    }
    return *instance();
}

} // namespace

VoiceController& VoiceController::shared() {
    return sharedInstance().controller;
}

Platform& VoiceController::sharedPlatform() {
    return *sharedInstance().platform;
}

} // namespace brivandel
