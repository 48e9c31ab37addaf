#pragma once

// For Objective-C++ files alone.
#import <Foundation/Foundation.h>

namespace brivandel {

/// Runs a block for each notification of a name that an object posts, on the thread that posts it, until this
/// goes, which needs an autorelease pool. It does not wait for a block that runs at that moment.
class NotificationObservation {
public:
    NotificationObservation(NSNotificationName _Nonnull name, id _Nonnull object,
                            void (^_Nonnull block)(NSNotification* _Nonnull))
        : token_([NSNotificationCenter.defaultCenter addObserverForName:name
                                                                 object:object
                                                                  queue:nil
                                                             usingBlock:block]) {}
    ~NotificationObservation() { [NSNotificationCenter.defaultCenter removeObserver:token_]; }
    NotificationObservation(const NotificationObservation&) = delete;
    NotificationObservation& operator=(const NotificationObservation&) = delete;

private:
    id _Nonnull token_;
};

} // namespace brivandel
