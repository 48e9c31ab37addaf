#include "platform/macos/FoundationText.h"
#include "platform/macos/MacBundle.h"
#include "platform/macos/MacServices.h"

#import <UserNotifications/UserNotifications.h>

/// Has a notification shown and heard also while this program is in front, when the system leaves it out
/// unless somebody asks for it.
@interface BrivandelNotificationPresenter : NSObject <UNUserNotificationCenterDelegate>
@end

@implementation BrivandelNotificationPresenter

- (void)userNotificationCenter:(UNUserNotificationCenter*)center
       willPresentNotification:(UNNotification*)notification
         withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))completionHandler {
    completionHandler(UNNotificationPresentationOptionBanner | UNNotificationPresentationOptionList |
                      UNNotificationPresentationOptionSound);
}

@end

namespace brivandel {

namespace {

class MacNotifier final : public Notifier {
public:
    MacNotifier() {
        if (bundleIdentifier().isEmpty()) {
            return;
        }
        @autoreleasepool {
            presenter_ = [[BrivandelNotificationPresenter alloc] init];
            [UNUserNotificationCenter currentNotificationCenter].delegate = presenter_;
        }
    }

    ~MacNotifier() override {
        if (presenter_ == nil) {
            return;
        }
        @autoreleasepool {
            [UNUserNotificationCenter currentNotificationCenter].delegate = nil;
            presenter_ = nil;
        }
    }

    MacNotifier(const MacNotifier&) = delete;
    MacNotifier& operator=(const MacNotifier&) = delete;

    void deliver(const Notification& notification) override {
        // Outside a bundle there is no notification centre, and asking for it ends the program.
        if (bundleIdentifier().isEmpty()) {
            return;
        }
        @autoreleasepool {
            UNMutableNotificationContent* content = [[UNMutableNotificationContent alloc] init];
            content.title = toNSString(notification.title);
            content.body = toNSString(notification.body);
            content.sound = UNNotificationSound.defaultSound;
            UNNotificationRequest* request =
                [UNNotificationRequest requestWithIdentifier:toNSString(notification.identifier)
                                                     content:content
                                                     trigger:nil];
            [[UNUserNotificationCenter currentNotificationCenter] addNotificationRequest:request
                                                                   withCompletionHandler:nil];
        }
    }

private:
    BrivandelNotificationPresenter* presenter_ = nil; // the centre does not keep it
};

} // namespace

std::unique_ptr<Notifier> makeMacNotifier() {
    return std::make_unique<MacNotifier>();
}

} // namespace brivandel
