#pragma once

#include <cstdint>

// What the stand-in runtime and the stand-in classes have between them. The runtime is as much of an
// Objective-C runtime as the adapters and the classes here need, for what clang emits with
// -fobjc-runtime=gnustep-2.0 -fobjc-legacy-dispatch -fobjc-arc -fblocks: classes, messages, reference counts,
// pools, blocks, and exceptions. No weak references, no categories on foreign classes, no forwarding.
#ifdef __OBJC__
using StandinObject = id;
using StandinClass = Class;
#define STANDIN_GIVES __attribute__((ns_returns_retained))
#else
struct Object;
struct ObjectClass;
using StandinObject = Object*;
using StandinClass = ObjectClass*;
#define STANDIN_GIVES
#endif

extern "C" {
/// A new object, its count at one.
StandinObject standinAllocate(StandinClass type) STANDIN_GIVES;
/// What NSObject's dealloc does.
void standinFree(void* object);
StandinClass standinClassOf(StandinObject object);
const char* standinNameOf(StandinClass type);
bool standinIsKind(StandinObject object, StandinClass type);
/// How many objects of that class are alive; "block" counts those on the heap.
long standinLiveCount(const char* className);
/// The characters of a string literal that is in the pointer itself.
unsigned standinTinyCharacters(const void* literal, char (&characters)[16]);
void* _Block_copy(const void* block);
}
