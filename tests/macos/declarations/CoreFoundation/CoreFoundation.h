// What the adapters use of Core Foundation, written from its public documentation. Each declaration names its page.
// Read a second time, against the published bindings of others: all but the bridged types.
#pragma once
#include <objc/objc.h>
#pragma clang assume_nonnull begin

// Core Foundation, "Core Foundation Data Types" and the type that Foundation bridges each to ("Toll-Free Bridged Types")
typedef const void* CFTypeRef;                                                        // CFTypeRef
typedef const struct __attribute__((objc_bridge(NSString))) __CFString* CFStringRef;  // CFStringRef
typedef const struct __attribute__((objc_bridge(NSData))) __CFData* CFDataRef;        // CFDataRef
typedef const struct __attribute__((objc_bridge(NSNumber))) __CFNumber* CFNumberRef;  // CFNumberRef
typedef const struct __attribute__((objc_bridge(NSDictionary))) __CFDictionary* CFDictionaryRef; // CFDictionaryRef
typedef unsigned long CFTypeID; // CFTypeID

// Kernel, MacTypes: the integer types
typedef unsigned char Boolean;         // Boolean
typedef uint8_t UInt8;                 // UInt8
typedef uint16_t UInt16;               // UInt16
typedef int16_t SInt16;                // SInt16
typedef uint32_t UInt32;               // UInt32
typedef int32_t SInt32;                // SInt32
typedef double Float64;                // Float64
typedef SInt16 OSErr;                  // OSErr
typedef SInt32 OSStatus;               // OSStatus
typedef UInt32 OptionBits;             // OptionBits
typedef UInt32 FourCharCode;           // FourCharCode
typedef long Size;                     // Size
typedef UInt16 UniChar;                // UniChar
typedef unsigned long UniCharCount;    // UniCharCount
enum { noErr = 0 };                    // noErr

extern "C" {
void CFRelease(CFTypeRef cf);                               // Core Foundation: CFRelease
CFTypeID CFGetTypeID(CFTypeRef cf);                         // Core Foundation: CFGetTypeID
CFTypeID CFBooleanGetTypeID(void);                          // Core Foundation: CFBooleanGetTypeID
Boolean CFNumberIsFloatType(CFNumberRef number);            // Core Foundation: CFNumberIsFloatType
const UInt8* _Nullable CFDataGetBytePtr(CFDataRef theData); // Core Foundation: CFDataGetBytePtr
}

#pragma clang assume_nonnull end
