#include "platform/macos/MacServices.h"

#import <AppKit/AppKit.h>

namespace brivandel {

namespace {

class MacBeeper final : public Beeper {
public:
    void beep() override {
        @autoreleasepool {
            NSBeep();
        }
    }
};

} // namespace

std::unique_ptr<Beeper> makeMacBeeper() {
    return std::make_unique<MacBeeper>();
}

} // namespace brivandel
