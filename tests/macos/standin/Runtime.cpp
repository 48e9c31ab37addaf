#include "Runtime.h"

#include "RuntimeLayout.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

// Classes and messages.
namespace standin {

std::recursive_mutex& runtimeLock() {
    static auto* lock = new std::recursive_mutex;
    return *lock;
}

namespace {

std::unordered_map<std::string, ObjectClass*>& classes() {
    static auto* all = new std::unordered_map<std::string, ObjectClass*>;
    return *all;
}

std::map<std::string, long>& liveCounts() {
    static auto* counts = new std::map<std::string, long>;
    return *counts;
}

ObjectClass* classNamed(const char* name) {
    const auto found = classes().find(name);
    if (found == classes().end()) {
        die("there is no class %s", name);
    }
    return found->second;
}

Implementation ownMethod(const ObjectClass* type, const char* name) {
    for (const MethodList* list = type->methods; list != nullptr; list = list->next) {
        for (int index = 0; index < list->count; ++index) {
            if (std::strcmp(list->methods[index].selector->name, name) == 0) {
                return list->methods[index].implementation;
            }
        }
    }
    return nullptr;
}

// Sizes and offsets come relative to the superclass, which must be laid out first.
void layOut(ObjectClass* type) {
    if ((type->info & ObjectClass::laidOut) != 0) {
        return;
    }
    type->info |= ObjectClass::laidOut;
    long base = 0;
    if (type->superclass != nullptr) {
        layOut(type->superclass);
        constexpr long alignment = 16;
        base = (type->superclass->instanceSize + alignment - 1) / alignment * alignment;
    }
    if (type->instanceSize <= 0) {
        type->instanceSize = base - type->instanceSize;
    }
    for (int index = 0; type->ivars != nullptr && index < type->ivars->count; ++index) {
        *type->ivars->ivars[index].offset += static_cast<int>(base);
    }
    ObjectClass* root = type;
    while (root->superclass != nullptr) {
        root = root->superclass;
    }
    type->isa->isa = root->isa;
    type->isa->superclass = type->superclass != nullptr ? type->superclass->isa : type;
    type->isa->info |= ObjectClass::meta | ObjectClass::laidOut;
    classes()[type->name] = type;
}

struct ZeroOfEveryKind {
    long integer;
    double real;
};
ZeroOfEveryKind answerOfNil() {
    return {0, 0};
}

} // namespace

void die(const char* format, const char* first, const char* second) {
    std::fputs("stand-in runtime: ", stderr);
    std::fprintf(stderr, format, first, second);
    std::fputc('\n', stderr);
    std::abort();
}

Implementation methodOf(const ObjectClass* type, const char* name) {
    for (const ObjectClass* each = type; each != nullptr; each = each->superclass) {
        if (const auto own = ownMethod(each, name)) {
            return own;
        }
    }
    return nullptr;
}

bool isTiny(const void* object) {
    constexpr std::uintptr_t kindBits = 7;
    constexpr std::uintptr_t tinyString = 4;
    return (reinterpret_cast<std::uintptr_t>(object) & kindBits) == tinyString;
}

bool isBlock(const Object* object) {
    return !isTiny(object) && isBlockClass(object->isa);
}

ObjectClass* classOf(const Object* object) {
    static ObjectClass* tiny = classNamed("StandinTinyString");
    static ObjectClass* block = classNamed("StandinBlock");
    return isTiny(object) ? tiny : isBlock(object) ? block : object->isa;
}

bool isCounted(const Object* object) {
    static ObjectClass* literal = classNamed("NSConstantString");
    return !isTiny(object) && object->isa != literal && (object->isa->info & ObjectClass::meta) == 0;
}

void countLive(const char* name, long change) {
    const std::lock_guard lock(runtimeLock());
    liveCounts()[name] += change;
}

} // namespace standin

using namespace standin;

extern "C" {

void __objc_load(const ModuleStart* start) {
    const std::lock_guard lock(runtimeLock());
    for (ObjectClass** type = start->classesBegin; type < start->classesEnd; ++type) {
        if (*type != nullptr) {
            layOut(*type);
        }
    }
    for (const Category* category = start->categoriesBegin; category < start->categoriesEnd; ++category) {
        if (category->name == nullptr) {
            continue;
        }
        ObjectClass* type = classNamed(category->className);
        const auto prepend = [](ObjectClass* to, MethodList* list) {
            if (list != nullptr) {
                list->next = to->methods;
                to->methods = list;
            }
        };
        prepend(type, category->instanceMethods);
        prepend(type->isa, category->classMethods);
    }
}

Slot* objc_msg_lookup_sender(Object** receiver, const Selector* selector, Object* /*sender*/) {
    static Slot nilSlot{{}, {}, {}, {}, reinterpret_cast<Implementation>(answerOfNil)};
    if (*receiver == nullptr) {
        return &nilSlot;
    }
    static auto* lookups = new std::map<std::pair<ObjectClass*, std::string>, Slot>;
    const std::lock_guard lock(runtimeLock());
    ObjectClass* type = classOf(*receiver);
    const auto [entry, isNew] = lookups->try_emplace({type, selector->name});
    if (isNew) {
        entry->second.implementation = methodOf(type, selector->name);
        if (entry->second.implementation == nullptr) {
            die("%s does not understand %s", type->name, selector->name);
        }
    }
    return &entry->second;
}

Implementation objc_msg_lookup_super(const SuperCall* call, const Selector* selector) {
    const std::lock_guard lock(runtimeLock());
    const auto method = methodOf(call->type, selector->name);
    if (method == nullptr) {
        die("%s does not understand %s", call->type->name, selector->name);
    }
    return method;
}

Object* standinAllocate(ObjectClass* type) {
    auto* count =
        static_cast<Count*>(std::calloc(1, sizeof(Count) + static_cast<std::size_t>(type->instanceSize)));
    new (count) Count{{1}, {false}};
    auto* object = reinterpret_cast<Object*>(count + 1);
    object->isa = type;
    std::vector<const ObjectClass*> line;
    for (const ObjectClass* each = type; each != nullptr; each = each->superclass) {
        line.insert(line.begin(), each);
    }
    for (const ObjectClass* each : line) {
        if (const auto construct = ownMethod(each, ".cxx_construct")) {
            reinterpret_cast<void (*)(Object*, const Selector*)>(construct)(object, nullptr);
        }
    }
    countLive(type->name, 1);
    return object;
}

void standinFree(void* memory) {
    auto* object = static_cast<Object*>(memory);
    for (const ObjectClass* each = object->isa; each != nullptr; each = each->superclass) {
        if (const auto destroy = ownMethod(each, ".cxx_destruct")) {
            reinterpret_cast<void (*)(Object*, const Selector*)>(destroy)(object, nullptr);
        }
    }
    countLive(object->isa->name, -1);
    std::free(countOf(object));
}

ObjectClass* standinClassOf(Object* object) {
    return classOf(object);
}

const char* standinNameOf(ObjectClass* type) {
    return type->name;
}

bool standinIsKind(Object* object, ObjectClass* type) {
    for (const ObjectClass* each = classOf(object); each != nullptr; each = each->superclass) {
        if (each == type) {
            return true;
        }
    }
    return false;
}

bool standinIsKindNamed(Object* object, const char* className) {
    const std::lock_guard lock(runtimeLock());
    return standinIsKind(object, classNamed(className));
}

long standinLiveCount(const char* className) {
    const std::lock_guard lock(runtimeLock());
    return liveCounts()[className];
}

// Up to eight characters of seven bits from the top, their number in four bits above the kind.
unsigned standinTinyCharacters(const void* literal, char (&characters)[16]) {
    const auto bits = reinterpret_cast<std::uintptr_t>(literal);
    const unsigned count = (bits >> 3) & 15;
    for (unsigned index = 0; index < count; ++index) {
        characters[index] = static_cast<char>((bits >> (57 - index * 7)) & 127);
    }
    return count;
}

void objc_enumerationMutation(Object* collection) {
    die("%s was changed while it was enumerated", classOf(collection)->name);
}

} // extern "C"
