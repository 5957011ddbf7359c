#pragma once

#include "com/guid.h"
#include "com/interface_traits.h"

#include <servprov.h>

namespace d2d::fakes {

/// A service, and a provider that answers for the service `offered`. Stands on the stack of a test, and is
/// not destroyed by its count.
class fake_service final : public IServiceProvider {
public:
    fake_service() = default;
    explicit fake_service(const GUID& offers) : offered(offers) {}
    fake_service(const fake_service&) = delete;
    fake_service& operator=(const fake_service&) = delete;

    [[nodiscard]] ULONG references() const noexcept { return reference_count; }

    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& id, void** out) override {
        return com::same_guid(service, offered) ? QueryInterface(id, out) : E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override {
        const bool known = com::same_guid(id, com::guid_of<IServiceProvider>()) ||
                           com::same_guid(id, com::guid_of<IUnknown>());
        *out = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++reference_count; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --reference_count; }

private:
    GUID offered{};
    ULONG reference_count = 0;
};

}  // namespace d2d::fakes
