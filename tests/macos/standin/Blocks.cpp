#include "Runtime.h"
#include "RuntimeLayout.h"

#include <cstdlib>
#include <cstring>

// Blocks as clang lays them out, from the public specification of their implementation ("Block-ABI-Apple").
extern "C" {
void* _NSConcreteStackBlock[32];
void* _NSConcreteGlobalBlock[32];
void* _NSConcreteMallocBlock[32];
Object* objc_retain(Object* object);
void objc_release(Object* object);
}

namespace {

struct BlockDescriptor {
    unsigned long reserved;
    unsigned long size;
    void (*copy)(void* to, const void* from);
    void (*dispose)(const void* block);
};

enum : int {
    countMask = 0xfffe, // counts in steps of two
    onHeap = 1 << 24,
    hasHelpers = 1 << 25,
    isGlobal = 1 << 28,
};

struct Block {
    void* isa;
    std::atomic<int> flags;
    int reserved;
    void (*invoke)();
    const BlockDescriptor* descriptor;
};

// What a captured field is.
enum : int { fieldIsBlock = 7, fieldIsByReference = 8, callerIsByReference = 128 };

} // namespace

bool standin::isBlockClass(const void* type) {
    return type == _NSConcreteStackBlock || type == _NSConcreteGlobalBlock || type == _NSConcreteMallocBlock;
}

bool standin::isOnStack(const Object* block) {
    return static_cast<void*>(block->isa) == _NSConcreteStackBlock;
}

extern "C" {

void* _Block_copy(const void* source) {
    auto* block = static_cast<Block*>(const_cast<void*>(source));
    if (block == nullptr || (block->flags & isGlobal) != 0) {
        return block;
    }
    if ((block->flags & onHeap) != 0) {
        block->flags += 2;
        return block;
    }
    auto* copy = static_cast<Block*>(std::malloc(block->descriptor->size));
    std::memcpy(static_cast<void*>(copy), block, block->descriptor->size);
    copy->isa = _NSConcreteMallocBlock;
    copy->flags = (block->flags & ~countMask) | onHeap | 2;
    if ((copy->flags & hasHelpers) != 0) {
        block->descriptor->copy(copy, block);
    }
    standin::countLive("block", 1);
    return copy;
}

void _Block_release(const void* source) {
    auto* block = static_cast<Block*>(const_cast<void*>(source));
    if (block == nullptr || (block->flags & onHeap) == 0 || ((block->flags -= 2) & countMask) != 0) {
        return;
    }
    if ((block->flags & hasHelpers) != 0) {
        block->descriptor->dispose(block);
    }
    standin::countLive("block", -1);
    std::free(block);
}

void _Block_object_assign(void* to, const void* from, int field) {
    if ((field & fieldIsByReference) != 0) {
        standin::die("no adapter has a __block variable");
    }
    auto* object = static_cast<Object*>(const_cast<void*>(from));
    if ((field & fieldIsBlock) == fieldIsBlock) {
        *static_cast<void**>(to) = _Block_copy(from);
    } else {
        *static_cast<Object**>(to) = (field & callerIsByReference) != 0 ? object : objc_retain(object);
    }
}

void _Block_object_dispose(const void* captured, int field) {
    if ((field & fieldIsBlock) == fieldIsBlock) {
        _Block_release(captured);
    } else if ((field & callerIsByReference) == 0) {
        objc_release(static_cast<Object*>(const_cast<void*>(captured)));
    }
}

} // extern "C"
