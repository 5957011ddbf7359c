#include "registration.h"
#include "timer_class_factory.h"

#include "system_library.h"

#include <uianimation.h>
#include <wrl/client.h>

#include <new>

namespace {

using get_class_object = HRESULT WINAPI(REFCLSID, REFIID, void**);

/// The other classes (the animation manager, the transition library) are the system's.
HRESULT system_class_object(REFCLSID clsid, REFIID iid, void** result) noexcept {
    try {
        static const completion::system_library original{L"uianimation.dll"};
        static get_class_object* const forward = original.function<get_class_object>("DllGetClassObject");
        return forward(clsid, iid, result);
    } catch (const std::exception&) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** result) {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    if (clsid != __uuidof(UIAnimationTimer)) {
        return system_class_object(clsid, iid, result);
    }
    const Microsoft::WRL::ComPtr<completion::timer_class_factory> factory{
        new (std::nothrow) completion::timer_class_factory};
    return factory ? factory->QueryInterface(iid, result) : E_OUTOFMEMORY;
}

STDAPI DllCanUnloadNow() {
    return completion::module_references == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return completion::register_timer_class();
}

STDAPI DllUnregisterServer() {
    return completion::unregister_timer_class();
}
