#include "RuntimeLayout.h"

#include <cxxabi.h>
#include <unwind.h>

#include <typeinfo>

// Objective-C exceptions are C++ exceptions whose type says so: clang makes a std::type_info for each class
// that is caught, with the class's name and with the table of functions of the type below, and lets the C++
// library do the rest.
extern "C" {
Object* objc_retain(Object* object);
void objc_release(Object* object);
bool standinIsKindNamed(Object* object, const char* className);
}

namespace gnustep::libobjc {

class __objc_class_type_info : public std::type_info {
public:
    explicit __objc_class_type_info(const char* name) : std::type_info(name) {}
    ~__objc_class_type_info() override;

    [[nodiscard]] bool __is_pointer_p() const override { return true; }
    bool __do_catch(const std::type_info* thrown, void** object, unsigned outer) const override;
};

namespace {

const __objc_class_type_info& thrownObject() {
    static const __objc_class_type_info type("id");
    return type;
}

} // namespace

__objc_class_type_info::~__objc_class_type_info() = default;

bool __objc_class_type_info::__do_catch(const std::type_info* thrown, void** object,
                                        unsigned /*outer*/) const {
    return thrown == &thrownObject() && standinIsKindNamed(static_cast<Object*>(*object), name());
}

} // namespace gnustep::libobjc

extern "C" {

[[noreturn]] void objc_exception_throw(Object* object) {
    auto* exception = static_cast<Object**>(abi::__cxa_allocate_exception(sizeof(Object*)));
    *exception = objc_retain(object);
    auto* type = const_cast<gnustep::libobjc::__objc_class_type_info*>(&gnustep::libobjc::thrownObject());
    abi::__cxa_throw(exception, type, [](void* thrown) { objc_release(*static_cast<Object**>(thrown)); });
}

_Unwind_Reason_Code __gxx_personality_v0(int version, _Unwind_Action actions, _Unwind_Exception_Class type,
                                         _Unwind_Exception* exception, _Unwind_Context* context);

_Unwind_Reason_Code __gnustep_objcxx_personality_v0(int version, _Unwind_Action actions,
                                                    _Unwind_Exception_Class type,
                                                    _Unwind_Exception* exception, _Unwind_Context* context) {
    return __gxx_personality_v0(version, actions, type, exception, context);
}

} // extern "C"
