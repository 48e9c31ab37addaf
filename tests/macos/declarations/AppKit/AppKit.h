// What the adapters use of AppKit, written from its public documentation. Each declaration names its page.
// Read a second time, against its pages and the published bindings of others: all.
#pragma once
#include <Foundation/Foundation.h>
NS_ASSUME_NONNULL_BEGIN

extern "C" void NSBeep(void); // AppKit: NSBeep

typedef NSString* NSAppearanceName;                               // AppKit: NSAppearanceName
extern "C" NSAppearanceName const NSAppearanceNameAqua;           // AppKit: NSAppearanceNameAqua
extern "C" NSAppearanceName const NSAppearanceNameDarkAqua;       // AppKit: NSAppearanceNameDarkAqua
// AppKit: NSAppearance
@interface NSAppearance : NSObject
// bestMatchFromAppearancesWithNames:
- (nullable NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray<NSAppearanceName>*)appearances;
@end

// AppKit: NSApplicationActivationPolicy
typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular,
    NSApplicationActivationPolicyAccessory,
    NSApplicationActivationPolicyProhibited,
};
// AppKit: NSApplication
@interface NSApplication : NSObject
@property (class, readonly, strong) __kindof NSApplication* sharedApplication;         // sharedApplication
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy;           // setActivationPolicy:
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps;                               // activateIgnoringOtherApps:
@property (readonly, strong) NSAppearance* effectiveAppearance;                        // effectiveAppearance
@end

// AppKit: NSEventMask
typedef NS_OPTIONS(unsigned long long, NSEventMask) {
    NSEventMaskLeftMouseDown = 1ULL << 1,
    NSEventMaskRightMouseDown = 1ULL << 3,
    NSEventMaskOtherMouseDown = 1ULL << 25,
};
// AppKit: NSEvent
@interface NSEvent : NSObject
@property (class, readonly) NSPoint mouseLocation; // mouseLocation
// addGlobalMonitorForEventsMatchingMask:handler:
+ (nullable id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent* event))block;
// addLocalMonitorForEventsMatchingMask:handler:
+ (nullable id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                            handler:(NSEvent* _Nullable (^)(NSEvent* event))block;
+ (void)removeMonitor:(id)eventMonitor; // removeMonitor:
@end

// AppKit: NSScreen
@interface NSScreen : NSObject
@property (class, readonly, copy) NSArray<NSScreen*>* screens; // screens
@property (readonly) NSRect frame;                             // frame
@property (readonly) CGFloat backingScaleFactor;               // backingScaleFactor
@end

// AppKit: NSRunningApplication
@interface NSRunningApplication : NSObject
@property (nullable, readonly, copy) NSString* localizedName; // localizedName
@end
// AppKit: NSWorkspace
@interface NSWorkspace : NSObject
@property (class, readonly, strong) NSWorkspace* sharedWorkspace;                    // sharedWorkspace
@property (readonly, copy) NSArray<NSRunningApplication*>* runningApplications;      // runningApplications
@end

NS_ASSUME_NONNULL_END
