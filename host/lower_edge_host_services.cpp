// The services of a host, and its deferred calls.

#include "d2d/lower_edge_host.h"

#include <stdexcept>

namespace d2d {

HRESULT lower_edge_host::QueryService(const GUID& service, const GUID& iid, void** result) {
    if (com::same_guid(service, com::guid_of<scene::IDeferredExecutionService>())) {
        return QueryInterface(iid, result);
    }
    const auto installed = services.find(service);
    if (installed != services.end() && installed->second)
        return installed->second->QueryInterface(iid, result);
    return upstream ? upstream->QueryService(service, iid, result) : E_NOINTERFACE;
}

void lower_edge_host::install_service(const GUID& id, IUnknown* service) {
    services[id] = service;
}

void lower_edge_host::uninstall_service(const GUID& id) {
    const auto installed = services.find(id);
    if (installed == services.end()) throw std::logic_error("Service not installed");
    const com::ptr<IUnknown> removed = installed->second;  // released when the table is in order again
    services.erase(installed);
}

void lower_edge_host::set_upstream_service_provider(IServiceProvider* provider) {
    upstream = provider;
}

void lower_edge_host::defer_execution(void* data, void (*function)(void*)) {
    PostMessageW(hwnd, WM_USER, reinterpret_cast<WPARAM>(data), reinterpret_cast<LPARAM>(function));
}

}  // namespace d2d
