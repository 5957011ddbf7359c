#pragma once

#include "module.h"

#include <windows.h>

#include <unknwn.h>

namespace completion {

/// Makes animation timers.
class timer_class_factory final : public IClassFactory {
public:
    /// Starts with no reference: the first pointer to it counts.
    timer_class_factory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** result) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    ~timer_class_factory() = default;

    module_reference module_;
    std::atomic<ULONG> references_{0};
};

}  // namespace completion
