#include "platform/macos/FoundationText.h"
#include "platform/macos/MacBundle.h"
#include "platform/macos/MacServices.h"

#import <UserNotifications/UserNotifications.h>

namespace brivandel {

namespace {

class MacNotifier final : public Notifier {
public:
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
};

} // namespace

std::unique_ptr<Notifier> makeMacNotifier() {
    return std::make_unique<MacNotifier>();
}

} // namespace brivandel
