#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>

// The structures that clang emits for -fobjc-runtime=gnustep-2.0, and those of the stand-in runtime's own.

struct Selector {
    const char* name;
    const char* types;
};

struct ObjectClass;
struct Object {
    ObjectClass* isa;
};

using Implementation = void (*)();

struct Method {
    Implementation implementation;
    Selector* selector;
    const char* types;
};
struct MethodList {
    MethodList* next;
    int count;
    std::size_t methodSize;
    Method methods[1];
};
struct Ivar {
    const char* name;
    const char* type;
    int* offset;
    std::uint32_t size;
    std::uint32_t flags;
};
struct IvarList {
    int count;
    std::size_t ivarSize;
    Ivar ivars[1];
};

struct ObjectClass {
    enum : unsigned long { meta = 1, laidOut = 1UL << 9 };

    ObjectClass* isa;
    ObjectClass* superclass;
    const char* name;
    long version;
    unsigned long info;
    long instanceSize; // negative until it is laid out
    IvarList* ivars;
    MethodList* methods;
    void* dispatchTable;
    Implementation construct;
    Implementation destruct;
    ObjectClass* firstSubclass;
    ObjectClass* nextSibling;
    void* protocols;
    void* extra;
    long abiVersion;
    void* properties;
};

struct Category {
    const char* name;
    const char* className;
    MethodList* instanceMethods;
    MethodList* classMethods;
    void* protocols;
    void* properties;
    void* classProperties;
};

struct ModuleStart {
    std::uint64_t version;
    Selector* selectorsBegin;
    Selector* selectorsEnd;
    ObjectClass** classesBegin;
    ObjectClass** classesEnd;
    ObjectClass** referencesBegin;
    ObjectClass** referencesEnd;
    Category* categoriesBegin;
    Category* categoriesEnd;
};

struct Slot {
    void* owner;
    void* cachedFor;
    const char* types;
    int version;
    Implementation implementation;
};

struct SuperCall {
    Object* receiver;
    ObjectClass* type;
};

namespace standin {

/// Stands before every object on the heap.
struct alignas(16) Count {
    std::atomic<long> references;
    std::atomic<bool> isDying;
};

inline Count* countOf(Object* object) {
    return reinterpret_cast<Count*>(object) - 1;
}

std::recursive_mutex& runtimeLock();
[[noreturn]] void die(const char* format, const char* first = "", const char* second = "");
Implementation methodOf(const ObjectClass* type, const char* name);
bool isTiny(const void* object);
bool isBlock(const Object* object);
bool isBlockClass(const void* type);
/// Of a block.
bool isOnStack(const Object* block);
/// Whether it has a count: literals, classes and blocks have none.
bool isCounted(const Object* object);
ObjectClass* classOf(const Object* object);
void countLive(const char* name, long change);

} // namespace standin
