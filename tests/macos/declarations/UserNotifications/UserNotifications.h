// What the adapters use of User Notifications, written from its public documentation. Each declaration names its page.
// Read a second time, against the published bindings of others: all.
#pragma once
#include <Foundation/Foundation.h>
NS_ASSUME_NONNULL_BEGIN

@class UNNotificationTrigger;

// User Notifications: UNAuthorizationOptions
typedef NS_OPTIONS(NSUInteger, UNAuthorizationOptions) {
    UNAuthorizationOptionBadge = 1 << 0,
    UNAuthorizationOptionSound = 1 << 1,
    UNAuthorizationOptionAlert = 1 << 2,
};

// User Notifications: UNNotificationSound
@interface UNNotificationSound : NSObject
@property (class, nonatomic, copy, readonly) UNNotificationSound* defaultSound; // defaultSound
- (instancetype)init NS_UNAVAILABLE;
@end

// User Notifications: UNNotificationContent
@interface UNNotificationContent : NSObject
@end

// User Notifications: UNMutableNotificationContent
@interface UNMutableNotificationContent : UNNotificationContent
@property (nonatomic, copy) NSString* title;                        // title
@property (nonatomic, copy) NSString* body;                         // body
@property (nonatomic, copy, nullable) UNNotificationSound* sound;   // sound
@end

// User Notifications: UNNotificationRequest
@interface UNNotificationRequest : NSObject
// requestWithIdentifier:content:trigger:
+ (instancetype)requestWithIdentifier:(NSString*)identifier
                              content:(UNNotificationContent*)content
                              trigger:(nullable UNNotificationTrigger*)trigger;
- (instancetype)init NS_UNAVAILABLE;
@end

// User Notifications: UNNotificationPresentationOptions
typedef NS_OPTIONS(NSUInteger, UNNotificationPresentationOptions) {
    UNNotificationPresentationOptionBadge = 1 << 0,
    UNNotificationPresentationOptionSound = 1 << 1,
    UNNotificationPresentationOptionList SINCE_MACOS(11.0) = 1 << 3,
    UNNotificationPresentationOptionBanner SINCE_MACOS(11.0) = 1 << 4,
};
// User Notifications: UNNotification
@interface UNNotification : NSObject
- (instancetype)init NS_UNAVAILABLE;
@end
@class UNUserNotificationCenter;
// User Notifications: UNUserNotificationCenterDelegate
@protocol UNUserNotificationCenterDelegate <NSObject>
@optional
// userNotificationCenter:willPresentNotification:withCompletionHandler:
- (void)userNotificationCenter:(UNUserNotificationCenter*)center
       willPresentNotification:(UNNotification*)notification
         withCompletionHandler:(void (^)(UNNotificationPresentationOptions options))completionHandler;
@end

// User Notifications: UNUserNotificationCenter
@interface UNUserNotificationCenter : NSObject
+ (UNUserNotificationCenter*)currentNotificationCenter;                                  // currentNotificationCenter
@property (nonatomic, weak, nullable) id<UNUserNotificationCenterDelegate> delegate;     // delegate
- (instancetype)init NS_UNAVAILABLE;
// requestAuthorizationWithOptions:completionHandler:
- (void)requestAuthorizationWithOptions:(UNAuthorizationOptions)options
                      completionHandler:(void (^)(BOOL granted, NSError* _Nullable error))completionHandler;
// addNotificationRequest:withCompletionHandler:
- (void)addNotificationRequest:(UNNotificationRequest*)request
         withCompletionHandler:(nullable void (^)(NSError* _Nullable error))completionHandler;
@end

NS_ASSUME_NONNULL_END
