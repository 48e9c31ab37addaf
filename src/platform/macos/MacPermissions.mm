#include "platform/macos/CallbackGate.h"
#include "platform/macos/MacBundle.h"
#include "platform/macos/MacServices.h"

#import <AVFoundation/AVFoundation.h>
#import <Speech/Speech.h>
#import <UserNotifications/UserNotifications.h>

#include <utility>

namespace brivandel {

namespace {

/// The user may take minutes to answer, and the program may have ended its services by then.
class MacPermissions final : public Permissions {
public:
    MacPermissions() = default;
    ~MacPermissions() override { gate_->close(); }
    MacPermissions(const MacPermissions&) = delete;
    MacPermissions& operator=(const MacPermissions&) = delete;

    void requestSpeechAuthorization(std::function<void(SpeechAuthorization)> answer) override {
        @autoreleasepool {
            const auto gate = gate_;
            const auto answered = std::move(answer);
            [SFSpeechRecognizer requestAuthorization:^(SFSpeechRecognizerAuthorizationStatus status) {
              gate->pass([&] { answered(static_cast<SpeechAuthorization>(status)); });
            }];
        }
    }

    void requestMicrophoneAccess(std::function<void(bool)> answer) override {
        @autoreleasepool {
            const auto gate = gate_;
            const auto answered = std::move(answer);
            [AVCaptureDevice requestAccessForMediaType:AVMediaTypeAudio
                                     completionHandler:^(BOOL granted) {
                                       gate->pass([&] { answered(granted); });
                                     }];
        }
    }

    void requestNotificationAuthorization() override {
        // Outside a bundle there is no notification centre, and asking for it ends the program.
        if (bundleIdentifier().isEmpty()) {
            return;
        }
        @autoreleasepool {
            [[UNUserNotificationCenter currentNotificationCenter]
                requestAuthorizationWithOptions:UNAuthorizationOptionAlert | UNAuthorizationOptionSound
                              completionHandler:^(BOOL, NSError*){
                              }];
        }
    }

private:
    std::shared_ptr<CallbackGate> gate_ = std::make_shared<CallbackGate>();
};

} // namespace

std::unique_ptr<Permissions> makeMacPermissions() {
    return std::make_unique<MacPermissions>();
}

} // namespace brivandel
