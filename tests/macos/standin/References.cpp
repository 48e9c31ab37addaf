#include "Runtime.h"
#include "RuntimeLayout.h"

#include <vector>

// Reference counts and autorelease pools, strict where the real ones are lenient: an object that nobody has
// counted any more, or that is autoreleased where there is no pool, ends the program.
namespace {

thread_local std::vector<Object*> pooled;
thread_local long poolCount = 0;

} // namespace

using namespace standin;

extern "C" {

void _Block_release(const void* block);

Object* objc_retain(Object* object) {
    if (object == nullptr) {
        return nullptr;
    }
    if (isBlock(object)) {
        // One on the stack stays there until it is copied.
        return isOnStack(object) ? object : static_cast<Object*>(_Block_copy(object));
    }
    if (isCounted(object) && countOf(object)->references.fetch_add(1) <= 0 && !countOf(object)->isDying) {
        die("%s is used after its end", object->isa->name);
    }
    return object;
}

void objc_release(Object* object) {
    if (object == nullptr) {
        return;
    }
    if (isBlock(object)) {
        _Block_release(object);
        return;
    }
    if (!isCounted(object) || countOf(object)->isDying || countOf(object)->references.fetch_sub(1) > 1) {
        return;
    }
    countOf(object)->isDying = true;
    static const Selector dealloc{"dealloc", nullptr};
    reinterpret_cast<void (*)(Object*, const Selector*)>(methodOf(object->isa, dealloc.name))(object,
                                                                                              &dealloc);
}

Object* objc_autorelease(Object* object) {
    if (object == nullptr) {
        return nullptr;
    }
    if (poolCount == 0) {
        die("%s is autoreleased where there is no pool", classOf(object)->name);
    }
    pooled.push_back(object);
    return object;
}

Object* objc_retainAutorelease(Object* object) {
    return objc_autorelease(objc_retain(object));
}

Object* objc_autoreleaseReturnValue(Object* object) {
    return objc_autorelease(object);
}

Object* objc_retainAutoreleaseReturnValue(Object* object) {
    return objc_retainAutorelease(object);
}

Object* objc_retainAutoreleasedReturnValue(Object* object) {
    return objc_retain(object);
}

Object* objc_unsafeClaimAutoreleasedReturnValue(Object* object) {
    return object;
}

Object* objc_retainBlock(Object* block) {
    return static_cast<Object*>(_Block_copy(block));
}

void objc_storeStrong(Object** place, Object* object) {
    objc_retain(object);
    Object* old = *place;
    *place = object;
    objc_release(old);
}

void* objc_autoreleasePoolPush() {
    ++poolCount;
    return reinterpret_cast<void*>(pooled.size() + 1);
}

void objc_autoreleasePoolPop(void* mark) {
    const auto kept = reinterpret_cast<std::size_t>(mark) - 1;
    while (pooled.size() > kept) {
        Object* object = pooled.back();
        pooled.pop_back();
        objc_release(object);
    }
    --poolCount;
}

namespace {

void setProperty(Object* owner, Object* retained, std::ptrdiff_t offset) {
    auto** place = reinterpret_cast<Object**>(reinterpret_cast<char*>(owner) + offset);
    Object* old = *place;
    *place = retained;
    objc_release(old);
}

Object* copied(Object* object) {
    return object != nullptr && isBlock(object) ? static_cast<Object*>(_Block_copy(object))
                                                : objc_retain(object);
}

} // namespace

void objc_setProperty_nonatomic(Object* owner, const Selector*, Object* value, std::ptrdiff_t offset) {
    setProperty(owner, objc_retain(value), offset);
}

void objc_setProperty_nonatomic_copy(Object* owner, const Selector*, Object* value, std::ptrdiff_t offset) {
    setProperty(owner, copied(value), offset);
}

void objc_setProperty_atomic(Object* owner, const Selector*, Object* value, std::ptrdiff_t offset) {
    setProperty(owner, objc_retain(value), offset);
}

void objc_setProperty_atomic_copy(Object* owner, const Selector*, Object* value, std::ptrdiff_t offset) {
    setProperty(owner, copied(value), offset);
}

Object* objc_getProperty(Object* owner, const Selector*, std::ptrdiff_t offset, bool) {
    return objc_retainAutorelease(*reinterpret_cast<Object**>(reinterpret_cast<char*>(owner) + offset));
}

} // extern "C"
