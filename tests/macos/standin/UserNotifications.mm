#include "Control.h"
#include "Doubles.h"

#import <UserNotifications/UserNotifications.h>

#include <utility>
#include <vector>

using namespace standin;

@implementation UNNotificationSound
+ (UNNotificationSound*)defaultSound {
    return [[UNNotificationSound alloc] init];
}
@end
@implementation UNNotificationContent
@end
@implementation UNMutableNotificationContent
@synthesize title = _title;
@synthesize body = _body;
@synthesize sound = _sound;
@end

@implementation UNNotificationRequest {
@public
    NSString* _identifier;
    UNMutableNotificationContent* _content;
}
+ (instancetype)requestWithIdentifier:(NSString*)identifier
                              content:(UNNotificationContent*)content
                              trigger:(UNNotificationTrigger*)trigger {
    UNNotificationRequest* request = [super alloc];
    request->_identifier = identifier;
    request->_content = static_cast<UNMutableNotificationContent*>(content);
    return request;
}
@end

static std::vector<void (^)(BOOL, NSError*)>& notificationHandlers() {
    static std::vector<void (^)(BOOL, NSError*)> handlers;
    return handlers;
}

// Not kept by the centre.
static __unsafe_unretained id<UNUserNotificationCenterDelegate> presenter;

@interface UNNotification (Standin)
+ (UNNotification*)notification;
@end
@implementation UNNotification
+ (UNNotification*)notification {
    return [super alloc];
}
@end

@implementation UNUserNotificationCenter
- (id<UNUserNotificationCenterDelegate>)delegate {
    return presenter;
}
- (void)setDelegate:(id<UNUserNotificationCenterDelegate>)delegate {
    presenter = delegate;
}
+ (UNUserNotificationCenter*)currentNotificationCenter {
    if (world().bundleIdentifier.isNull()) {
        world().calls += QStringLiteral("bundleProxyForCurrentProcess is nil");
    }
    return [super alloc];
}
- (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options
                      completionHandler:(void (^)(BOOL, NSError*))completionHandler {
    world().calls += QStringLiteral("request notifications %1").arg(static_cast<int>(options));
    notificationHandlers().push_back([completionHandler copy]);
}
- (void)addNotificationRequest:(UNNotificationRequest*)request
         withCompletionHandler:(void (^)(NSError*))completionHandler {
    world().calls +=
        QStringLiteral("notify %1|%2|%3|%4")
            .arg(characters(request->_identifier), characters(request->_content.title),
                 characters(request->_content.body),
                 request->_content.sound != nil ? QStringLiteral("sound") : QStringLiteral("silent"));
    // Of what comes while the program is in front nothing is shown, unless the delegate asks for it.
    if (world().isInFront && presenter != nil) {
        [presenter userNotificationCenter:self
                  willPresentNotification:[UNNotification notification]
                    withCompletionHandler:^(UNNotificationPresentationOptions options) {
                      world().calls += QStringLiteral("present %1").arg(static_cast<int>(options));
                    }];
    }
}
@end

void standin::answerNotifications(bool granted) {
    elsewhere([&] {
        for (const auto& handler : std::exchange(notificationHandlers(), {})) {
            handler(granted, nil);
        }
    });
}
