// What the adapters use of Core Graphics, written from its public documentation. Each declaration names its page.
// Read a second time, against the published bindings of others: all.
#pragma once
#include <CoreFoundation/CoreFoundation.h>
#pragma clang assume_nonnull begin

typedef double CGFloat; // Core Graphics: CGFloat (64-bit systems)
// Core Graphics: CGPoint
typedef struct CGPoint {
    CGFloat x;
    CGFloat y;
} CGPoint;
// Core Graphics: CGSize
typedef struct CGSize {
    CGFloat width;
    CGFloat height;
} CGSize;
// Core Graphics: CGRect
typedef struct CGRect {
    CGPoint origin;
    CGSize size;
} CGRect;

// Core Graphics: CGSessionCopyCurrentDictionary
extern "C" CFDictionaryRef _Nullable CGSessionCopyCurrentDictionary(void) __attribute__((cf_returns_retained));

#pragma clang assume_nonnull end
