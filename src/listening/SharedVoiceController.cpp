#include "listening/VoiceController.h"
#include "platform/Platform.h"

#include <QCoreApplication>
#include <QPointer>

#include <memory>

namespace brivandel {

namespace {

// Owned by the application object, and so gone before Qt is; a function's static would outlive it.
class SharedVoiceController final : public QObject {
public:
    explicit SharedVoiceController(QObject* parent) : QObject(parent) {}

    VoiceController& controller() { return controller_; }

private:
    std::unique_ptr<Platform> platform_ = makePlatform({});
    VoiceController controller_{*platform_};
};

} // namespace

VoiceController& VoiceController::shared() {
    static QPointer<SharedVoiceController> shared;
    if (!shared) {
        shared = new SharedVoiceController(QCoreApplication::instance());
    }
    return shared->controller();
}

} // namespace brivandel
