#include "platform/macos/CfHolder.h"
#include "platform/macos/MacServices.h"

#import <Carbon/Carbon.h>

#include <array>

namespace brivandel {

namespace {

class MacKeyboardLayout final : public KeyboardLayout {
public:
    [[nodiscard]] std::optional<QString> characterForKeyCode(std::uint16_t keyCode) const override {
        @autoreleasepool {
            const CfHolder source(TISCopyCurrentASCIICapableKeyboardLayoutInputSource());
            if (!source) {
                return std::nullopt;
            }
            // The source owns it. A layout of the older kind has none.
            const auto* data = static_cast<CFDataRef>(
                TISGetInputSourceProperty(source.get(), kTISPropertyUnicodeKeyLayoutData));
            if (data == nullptr) {
                return std::nullopt;
            }
            const auto* layout = reinterpret_cast<const UCKeyboardLayout*>(CFDataGetBytePtr(data));
            constexpr UInt32 noModifiers = 0;
            constexpr OptionBits noOptions = 0;
            UInt32 deadKeyState = 0;
            std::array<UniChar, 4> units{};
            UniCharCount unitCount = 0;
            const OSStatus status =
                UCKeyTranslate(layout, keyCode, kUCKeyActionDown, noModifiers, LMGetKbdType(), noOptions,
                               &deadKeyState, units.size(), &unitCount, units.data());
            if (status != noErr || unitCount == 0) {
                return std::nullopt;
            }
            return QString::fromUtf16(reinterpret_cast<const char16_t*>(units.data()),
                                      static_cast<qsizetype>(unitCount));
        }
    }

    /// Qt hands on the virtual key code of the event and has no scan code here.
    [[nodiscard]] std::optional<std::uint16_t> keyCodeForNativeKey(NativeKey key) const override {
        constexpr std::uint32_t lastKeyCode = 127;
        if (key.virtualKey > lastKeyCode) {
            return std::nullopt;
        }
        return static_cast<std::uint16_t>(key.virtualKey);
    }
};

} // namespace

std::unique_ptr<KeyboardLayout> makeMacKeyboardLayout() {
    return std::make_unique<MacKeyboardLayout>();
}

} // namespace brivandel
