#include "timer_class_factory.h"

#include "animation_timer.h"

#include <new>

namespace completion {

HRESULT timer_class_factory::QueryInterface(REFIID iid, void** result) {
    if (!result) {
        return E_POINTER;
    }
    if (iid == __uuidof(IUnknown) || iid == __uuidof(IClassFactory)) {
        *result = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    *result = nullptr;
    return E_NOINTERFACE;
}

ULONG timer_class_factory::AddRef() {
    return ++references_;
}

ULONG timer_class_factory::Release() {
    const ULONG remaining = --references_;
    if (remaining == 0) {
        delete this;
    }
    return remaining;
}

HRESULT timer_class_factory::CreateInstance(IUnknown* outer, REFIID iid, void** result) {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    if (outer) {
        return CLASS_E_NOAGGREGATION;
    }
    const Microsoft::WRL::ComPtr<animation_timer> timer{new (std::nothrow) animation_timer};
    return timer ? timer->QueryInterface(iid, result) : E_OUTOFMEMORY;
}

HRESULT timer_class_factory::LockServer(BOOL lock) {
    module_references += lock ? 1 : -1;
    return S_OK;
}

}  // namespace completion
