// What the adapters use of Carbon (text input sources) and Core Services (keyboard layouts), written from their public
// documentation. Each declaration names its page; the functions without one, the guide that shows them.
// Read a second time, against the published bindings of others: all.
#pragma once
#include <CoreFoundation/CoreFoundation.h>

typedef struct __TISInputSource* TISInputSourceRef; // Text Input Source Services: TISInputSourceRef
struct UCKeyboardLayout;                            // Core Services: UCKeyboardLayout

enum { kUCKeyActionDown = 0 }; // Core Services: kUCKeyActionDown

extern "C" {
// Text Input Source Services: kTISPropertyUnicodeKeyLayoutData
extern const CFStringRef _Nonnull kTISPropertyUnicodeKeyLayoutData;
// Text Input Source Services: TISCopyCurrentASCIICapableKeyboardLayoutInputSource
TISInputSourceRef _Nullable TISCopyCurrentASCIICapableKeyboardLayoutInputSource(void)
    __attribute__((cf_returns_retained));
// Text Input Source Services: TISGetInputSourceProperty
void* _Nullable TISGetInputSourceProperty(TISInputSourceRef _Nonnull inputSource, CFStringRef _Nonnull propertyKey);
// Core Services: LMGetKbdType
UInt8 LMGetKbdType(void);
// Core Services: UCKeyTranslate
OSStatus UCKeyTranslate(const struct UCKeyboardLayout* _Nonnull keyLayoutPtr, UInt16 virtualKeyCode, UInt16 keyAction,
                        UInt32 modifierKeyState, UInt32 keyboardType, OptionBits keyTranslateOptions,
                        UInt32* _Nonnull deadKeyState, UniCharCount maxStringLength,
                        UniCharCount* _Nonnull actualStringLength, UniChar* _Nonnull unicodeString);
}
