#pragma once

// For Objective-C++ files alone.
#import <Foundation/Foundation.h>

namespace brivandel {

/// As long as it lives, the system takes this program for one that does what its user asked for, though no
/// window of it is to be seen: else it would let the program nap, and timers come seconds late. The machine
/// may still go to sleep by itself. Needs an autorelease pool at both ends.
class UserActivity {
public:
    /// reason: for whoever looks at what keeps programs awake.
    explicit UserActivity(NSString* _Nonnull reason)
        : token_([NSProcessInfo.processInfo
              beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                                reason:reason]) {}
    ~UserActivity() { [NSProcessInfo.processInfo endActivity:token_]; }
    UserActivity(const UserActivity&) = delete;
    UserActivity& operator=(const UserActivity&) = delete;

private:
    id<NSObject> _Nonnull token_;
};

} // namespace brivandel
