#include "Control.h"
#include "Doubles.h"
#include "Private.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <utility>

using namespace standin;

void NSBeep() {
    world().calls += QStringLiteral("beep");
}

BOOL NSMouseInRect(NSPoint aPoint, NSRect aRect, BOOL flipped) {
    return aPoint.x >= aRect.origin.x && aPoint.x < aRect.origin.x + aRect.size.width &&
           aPoint.y > aRect.origin.y && aPoint.y <= aRect.origin.y + aRect.size.height;
}

NSAppearanceName const NSAppearanceNameAqua = @"NSAppearanceNameAqua";
NSAppearanceName const NSAppearanceNameDarkAqua = @"NSAppearanceNameDarkAqua";

@implementation NSAppearance
- (NSAppearanceName)bestMatchFromAppearancesWithNames:(NSArray<NSAppearanceName>*)appearances {
    for (NSAppearanceName name in appearances) {
        if (characters(name) == world().appearance) {
            return name;
        }
    }
    return nil;
}
@end

static std::vector<std::pair<NSObject*, QString>>& observers() {
    static std::vector<std::pair<NSObject*, QString>> observers;
    return observers;
}

@implementation NSApplication
+ (NSApplication*)sharedApplication {
    static NSApplication* application = [[NSApplication alloc] init];
    return application;
}
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy {
    world().calls += QStringLiteral("policy %1").arg(static_cast<int>(activationPolicy));
    return YES;
}
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps {
    world().calls += QStringLiteral("activate %1").arg(ignoreOtherApps ? 1 : 0);
}
- (NSAppearance*)effectiveAppearance {
    return [[NSAppearance alloc] init];
}
// Nobody is observed but the application, which does not keep its observers.
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(void*)context {
    observers().emplace_back((__bridge id)((__bridge void*)observer), characters(keyPath));
}
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath {
    std::erase(observers(), std::pair(observer, characters(keyPath)));
}
@end

void standin::changeAppearance(const QString& name) {
    @autoreleasepool {
        world().appearance = name;
        for (const auto& [observer, keyPath] : std::vector(observers())) {
            if (keyPath == QStringLiteral("effectiveAppearance")) {
                [observer observeValueForKeyPath:text(keyPath)
                                        ofObject:NSApplication.sharedApplication
                                          change:nil
                                         context:nullptr];
            }
        }
    }
}

@interface StandinMonitor : NSObject
@end
@implementation StandinMonitor {
@public
    NSEvent* (^_handler)(NSEvent*);
    bool _isForOtherPrograms;
    unsigned long long _mask;
}
@end

static std::vector<StandinMonitor*>& monitors() {
    static std::vector<StandinMonitor*> monitors;
    return monitors;
}

static NSPoint mousePlace;

@implementation NSEvent
+ (NSPoint)mouseLocation {
    return mousePlace;
}
+ (id)addGlobalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(void (^)(NSEvent*))block {
    id monitor = [self addLocalMonitorForEventsMatchingMask:mask
                                                    handler:^NSEvent*(NSEvent* event) {
                                                      block(event);
                                                      return event;
                                                    }];
    monitors().back()->_isForOtherPrograms = true;
    return monitor;
}
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(NSEvent* (^)(NSEvent*))block {
    StandinMonitor* monitor = [[StandinMonitor alloc] init];
    monitor->_handler = [block copy];
    monitor->_mask = mask;
    monitors().push_back(monitor);
    return monitor;
}
+ (void)removeMonitor:(id)eventMonitor {
    std::erase(monitors(), eventMonitor);
}
@end

void standin::press(double x, double y, bool inAnotherProgram) {
    @autoreleasepool {
        mousePlace = {x, y};
        for (const auto& monitor : std::vector(monitors())) {
            if (monitor->_isForOtherPrograms == inAnotherProgram &&
                (monitor->_mask & NSEventMaskLeftMouseDown) != 0) {
                NSEvent* event = [[NSEvent alloc] init];
                if (monitor->_handler(event) != event) {
                    world().calls += QStringLiteral("event swallowed");
                }
            }
        }
    }
}

// The first screen has 1440 by 900 points of two pixels each way; the second stands to its right, lower, with
// 1000 by 500 points of one pixel.
@implementation NSScreen {
@public
    NSRect _frame;
    CGFloat _ratio;
}
+ (NSArray<NSScreen*>*)screens {
    NSScreen* first = [[NSScreen alloc] init];
    first->_frame = {{0, 0}, {1440, 900}};
    first->_ratio = 2;
    NSScreen* second = [[NSScreen alloc] init];
    second->_frame = {{1440, -100}, {1000, 500}};
    second->_ratio = 1;
    return array({first, second});
}
- (NSRect)frame {
    return _frame;
}
- (CGFloat)backingScaleFactor {
    return _ratio;
}
@end

@implementation NSRunningApplication {
@public
    NSString* _localizedName;
}
- (NSString*)localizedName {
    return _localizedName;
}
@end

@implementation NSWorkspace
+ (NSWorkspace*)sharedWorkspace {
    return [[NSWorkspace alloc] init];
}
- (NSArray<NSRunningApplication*>*)runningApplications {
    std::vector<id> programs;
    for (const QString& name : world().runningPrograms) {
        NSRunningApplication* program = [[NSRunningApplication alloc] init];
        program->_localizedName = text(name);
        programs.push_back(program);
    }
    return array(programs);
}
@end
