// What the adapters use of the Objective-C runtime, written from its public documentation. Not an SDK.
#pragma once
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

// Objective-C Runtime: BOOL. One of two types, by processor, which the compiler knows.
#ifdef __OBJC_BOOL_IS_BOOL
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
#define YES __objc_yes // Objective-C Runtime: YES
#define NO __objc_no   // Objective-C Runtime: NO

// Objective-C Runtime: nil, Nil
#ifndef nil
#define nil nullptr
#define Nil nullptr
#endif
