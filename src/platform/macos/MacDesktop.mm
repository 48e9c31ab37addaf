#include "platform/Desktop.h"
#include "platform/macos/CfHolder.h"

#import <AppKit/AppKit.h>
#import <CoreGraphics/CoreGraphics.h>

#include <cmath>
#include <utility>

/// Tells when the application changes between light and dark.
@interface BrivandelAppearanceObserver : NSObject
- (nonnull instancetype)initWithHandler:(nonnull void (^)(void))handler;
/// After this, nothing is told; before the last reference to it goes.
- (void)invalidate;
@end

static NSString* const effectiveAppearanceKey = @"effectiveAppearance";

@implementation BrivandelAppearanceObserver {
    void (^_handler)(void);
}

- (instancetype)initWithHandler:(void (^)(void))handler {
    if ((self = [super init]) != nil) {
        _handler = [handler copy];
        [NSApplication.sharedApplication addObserver:self
                                          forKeyPath:effectiveAppearanceKey
                                             options:0
                                             context:nullptr];
    }
    return self;
}

- (void)invalidate {
    _handler = nil;
    [NSApplication.sharedApplication removeObserver:self forKeyPath:effectiveAppearanceKey];
}

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context {
    // It may end this observation.
    void (^handler)(void) = _handler;
    if (handler != nil) {
        handler();
    }
}

@end

namespace brivandel {

namespace {

class MacAppearance final : public DesktopAppearance {
public:
    MacAppearance() = default;
    ~MacAppearance() override { onChange({}); }
    MacAppearance(const MacAppearance&) = delete;
    MacAppearance& operator=(const MacAppearance&) = delete;

    [[nodiscard]] Preference preference() const override {
        @autoreleasepool {
            NSAppearanceName name = [NSApplication.sharedApplication.effectiveAppearance
                bestMatchFromAppearancesWithNames:@[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]];
            if (name == nil) {
                return Preference::None;
            }
            return [name isEqualToString:NSAppearanceNameDarkAqua] ? Preference::Dark : Preference::Light;
        }
    }

    void onChange(std::function<void()> changed) override {
        @autoreleasepool {
            [observer_ invalidate];
            observer_ = nil;
            if (changed) {
                const auto told = std::move(changed);
                observer_ = [[BrivandelAppearanceObserver alloc] initWithHandler:^{
                  told();
                }];
            }
        }
    }

private:
    BrivandelAppearanceObserver* observer_ = nil;
};

class MenuBar final : public StatusArea {
public:
    [[nodiscard]] bool isThere() const override { return true; }
    void onChange(std::function<void()> /*changed*/) override {}
    [[nodiscard]] bool hasSquareIcons() const override { return false; }
    [[nodiscard]] bool opensMenus() const override { return true; }
};

// From points up from the lower left corner of the first screen to pixels down from its upper left one.
QPoint physicalPlace(NSPoint location) {
    NSScreen* first = NSScreen.screens.firstObject;
    const CGFloat height = first != nil ? first.frame.size.height : 0;
    for (NSScreen* screen in NSScreen.screens) {
        const NSRect frame = screen.frame;
        if (!NSMouseInRect(location, frame, NO)) {
            continue;
        }
        const double left = frame.origin.x;
        const double top = height - (frame.origin.y + frame.size.height);
        const double ratio = screen.backingScaleFactor;
        return {static_cast<int>(std::lround(left + (location.x - left) * ratio)),
                static_cast<int>(std::lround(top + (height - location.y - top) * ratio))};
    }
    return {static_cast<int>(std::lround(location.x)), static_cast<int>(std::lround(height - location.y))};
}

class MacPointerPresses final : public PointerPresses {
public:
    MacPointerPresses() = default;
    ~MacPointerPresses() override { watch({}); }
    MacPointerPresses(const MacPointerPresses&) = delete;
    MacPointerPresses& operator=(const MacPointerPresses&) = delete;

    [[nodiscard]] bool areKnown() const override { return true; }

    void watch(std::function<void(QPoint)> pressed) override {
        @autoreleasepool {
            for (id monitor : {elsewhere_, here_}) {
                if (monitor != nil) {
                    [NSEvent removeMonitor:monitor];
                }
            }
            elsewhere_ = nil;
            here_ = nil;
            if (!pressed) {
                return;
            }
            // Being told may end the watch, and with it the block that tells.
            const auto told = [pressed = std::make_shared<std::function<void(QPoint)>>(std::move(pressed))] {
                const auto live = pressed;
                (*live)(physicalPlace(NSEvent.mouseLocation));
            };
            constexpr NSEventMask presses =
                NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown | NSEventMaskOtherMouseDown;
            // One monitor knows the presses in other programs alone, the other those in this one.
            elsewhere_ = [NSEvent addGlobalMonitorForEventsMatchingMask:presses
                                                                handler:^(NSEvent*) {
                                                                  told();
                                                                }];
            here_ = [NSEvent addLocalMonitorForEventsMatchingMask:presses
                                                          handler:^NSEvent*(NSEvent* event) {
                                                            told();
                                                            return event;
                                                          }];
        }
    }

private:
    id elsewhere_ = nil;
    id here_ = nil;
};

class MacActivation final : public ProgramActivation {
public:
    void activate() override {
        @autoreleasepool {
            [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
        }
    }
};

} // namespace

std::optional<QString> desktopProblem() {
    // Told which platform to use, Qt needs no session of these.
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        return std::nullopt;
    }
    if (const CfHolder session(CGSessionCopyCurrentDictionary()); !session) {
        return QStringLiteral("there is no desktop session to show a status item in, as when the program was "
                              "started from afar; 'brivandel listen' needs none");
    }
    return std::nullopt;
}

std::unique_ptr<Desktop> makeDesktop() {
    @autoreleasepool {
        // No icon in the Dock and no menu of its own, also when the program runs outside its bundle.
        [NSApplication.sharedApplication setActivationPolicy:NSApplicationActivationPolicyAccessory];
    }
    auto desktop = std::make_unique<Desktop>();
    desktop->appearance = std::make_unique<MacAppearance>();
    desktop->statusArea = std::make_unique<MenuBar>();
    desktop->pointerPresses = std::make_unique<MacPointerPresses>();
    desktop->activation = std::make_unique<MacActivation>();
    return desktop;
}

} // namespace brivandel
