// A partial present names what has changed, and Windows takes the rest over from the frame before. Wine
// ignores the rectangles and just exchanges the buffers, so the rest would be two frames old.

#include "presentation_completion.h"

#include "guarded.h"
#include "owned.h"
#include "table_slot.h"

#include <d3d11.h>
#include <dxgi1_2.h>

namespace completion {

namespace {

using create_device_method = HRESULT (STDMETHODCALLTYPE ID2D1Factory1::*)(IDXGIDevice*, ID2D1Device**);

table_slot<create_device_method> create_device_slot{&ID2D1Factory1::CreateDevice};
table_slot<decltype(&IDXGIFactory2::CreateSwapChainForHwnd)> create_chain_slot{
    &IDXGIFactory2::CreateSwapChainForHwnd};
table_slot<decltype(&IDXGISwapChain1::Present1)> present_slot{&IDXGISwapChain1::Present1};

owned<ID3D11Resource> buffer_of(IDXGISwapChain1* chain, UINT index) {
    return make<ID3D11Resource>([&](ID3D11Resource** result) {
        return chain->GetBuffer(index, __uuidof(ID3D11Resource), reinterpret_cast<void**>(result));
    });
}

/// Copies the frame that was just presented, the last buffer by now, to where the next one is drawn.
void take_frame_over(IDXGISwapChain1* chain) {
    DXGI_SWAP_CHAIN_DESC1 description{};
    if (FAILED(chain->GetDesc1(&description)) || description.BufferCount < 2 ||
        description.SwapEffect != DXGI_SWAP_EFFECT_FLIP_SEQUENTIAL) {
        return;
    }
    const auto device = make<ID3D11Device>([&](ID3D11Device** result) {
        return chain->GetDevice(__uuidof(ID3D11Device), reinterpret_cast<void**>(result));
    });
    const auto presented = buffer_of(chain, description.BufferCount - 1);
    const auto next = buffer_of(chain, 0);
    if (!device || !presented || !next) {
        return;
    }
    const auto context = make<ID3D11DeviceContext>([&](ID3D11DeviceContext** result) {
        device->GetImmediateContext(result);
        return S_OK;
    });
    context->CopyResource(next.get(), presented.get());
}

HRESULT STDMETHODCALLTYPE present(IDXGISwapChain1* self, UINT interval, UINT flags,
                                  const DXGI_PRESENT_PARAMETERS* parameters) noexcept {
    const HRESULT result = present_slot.original()(self, interval, flags, parameters);
    if (SUCCEEDED(result) && !(flags & DXGI_PRESENT_TEST) && parameters && parameters->DirtyRectsCount) {
        take_frame_over(self);
    }
    return result;
}

HRESULT STDMETHODCALLTYPE create_chain(IDXGIFactory2* self, IUnknown* device, HWND window,
                                       const DXGI_SWAP_CHAIN_DESC1* description,
                                       const DXGI_SWAP_CHAIN_FULLSCREEN_DESC* fullscreen, IDXGIOutput* output,
                                       IDXGISwapChain1** chain) noexcept {
    const HRESULT result =
        create_chain_slot.original()(self, device, window, description, fullscreen, output, chain);
    return FAILED(result) ? result : guarded([&] {
        present_slot.replace(*chain, &present);
        return result;
    });
}

void complete_factory_behind(IDXGIDevice* device) {
    const auto adapter =
        make<IDXGIAdapter>([&](IDXGIAdapter** result) { return device->GetAdapter(result); });
    const auto factory = adapter ? make<IDXGIFactory2>([&](IDXGIFactory2** result) {
        return adapter->GetParent(__uuidof(IDXGIFactory2), reinterpret_cast<void**>(result));
    })
                                 : nullptr;
    if (factory) {
        create_chain_slot.replace(factory.get(), &create_chain);
    }
}

HRESULT STDMETHODCALLTYPE create_device(ID2D1Factory1* self, IDXGIDevice* device,
                                        ID2D1Device** result) noexcept {
    const HRESULT outcome = create_device_slot.original()(self, device, result);
    return FAILED(outcome) ? outcome : guarded([&] {
        complete_factory_behind(device);
        return outcome;
    });
}

}  // namespace

void complete_presentation(ID2D1Factory* factory) {
    if (const auto newer = query<ID2D1Factory1>(factory)) {
        create_device_slot.replace(newer.get(), &create_device);
    }
}

}  // namespace completion
