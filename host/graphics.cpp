#include "host/graphics.h"

#include "com/check.h"
#include "com/ptr.h"

#include <utility>

namespace d2d::graphics {

// Plain variables: nothing happens when the library is unloaded.
ID3D11Device* d3d_device = nullptr;
D3D_FEATURE_LEVEL d3d_feature_level{};
ID3D11DeviceContext* d3d_context = nullptr;
IDXGIFactory2* dxgi_factory = nullptr;
ID2D1Factory1* d2d_factory = nullptr;
IDWriteFactory* dwrite_factory = nullptr;
ID2D1Device* d2d_device = nullptr;
ID2D1DeviceContext* d2d_context = nullptr;

namespace {

unsigned user_count = 0;

template <class T>
void release_and_clear(T*& object) noexcept {
    if (T* const last = std::exchange(object, nullptr)) last->Release();
}

/// Leaves the stale value: the next creation overwrites it.
template <class T>
void release_only(T* object) noexcept {
    if (object) object->Release();
}

void find_dxgi_factory() {
    const com::ptr<IDXGIDevice1> device(d3d_device);
    com::ptr<IDXGIAdapter> adapter;
    com::check(device->GetAdapter(adapter.put()));
    void* made = nullptr;
    com::check(adapter->GetParent(com::guid_of<IDXGIFactory2>(), &made));
    dxgi_factory = static_cast<IDXGIFactory2*>(made);
}

void create_factories() {
    void* made = nullptr;
    com::check(
        D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, com::guid_of<ID2D1Factory1>(), nullptr, &made));
    d2d_factory = static_cast<ID2D1Factory1*>(made);
    com::ptr<IUnknown> dwrite;
    com::check(DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, com::guid_of<IDWriteFactory>(), dwrite.put()));
    dwrite_factory = static_cast<IDWriteFactory*>(dwrite.detach());
}

void create() {
    com::check(D3D11CreateDevice(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, D3D11_CREATE_DEVICE_BGRA_SUPPORT,
                                 nullptr, 0, D3D11_SDK_VERSION, &d3d_device, &d3d_feature_level,
                                 &d3d_context));
    find_dxgi_factory();
    create_factories();
    const com::ptr<IDXGIDevice> device(d3d_device);
    com::check(d2d_factory->CreateDevice(device.get(), &d2d_device));
    com::check(d2d_device->CreateDeviceContext(D2D1_DEVICE_CONTEXT_OPTIONS_NONE, &d2d_context));
}

void release() noexcept {
    release_and_clear(d2d_context);
    release_and_clear(d2d_device);
    release_and_clear(dwrite_factory);
    release_and_clear(d2d_factory);
    d3d_feature_level = {};
    release_only(dxgi_factory);
    release_only(d3d_context);
    release_only(d3d_device);
}

}  // namespace

unsigned users() noexcept {
    return user_count;
}

// A failed creation keeps the count: no later token tries again, which callers take as fatal.
void take() {
    if (user_count++ == 0) create();
}

void give_back() noexcept {
    if (--user_count == 0) release();
}

}  // namespace d2d::graphics
