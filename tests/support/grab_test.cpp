#include "support/input.h"
#include "support/recording_window.h"
#include "support/shown.h"

#include <d2d1_1.h>
#include <d3d11.h>
#include <dxgi1_2.h>
#include <wrl/client.h>

#include <gtest/gtest.h>

namespace test_support {
namespace {

using Microsoft::WRL::ComPtr;

class grabbed_window : public testing::Test {
protected:
    void SetUp() override { bring_to_front(window.handle()); }

    recording_window window;
};

TEST_F(grabbed_window, shows_what_gdi_painted) {
    const HDC context = GetDC(window.handle());
    const HBRUSH brush = CreateSolidBrush(RGB(0x10, 0x80, 0xF0));
    const RECT area{10, 20, 30, 25};
    FillRect(context, &area, brush);
    DeleteObject(brush);
    ReleaseDC(window.handle(), context);
    GdiFlush();

    const auto image = grab_when(window.handle(), 0xFF1080F0, 10, 20);
    EXPECT_EQ(300u, image.width);
    EXPECT_EQ(200u, image.height);
    EXPECT_EQ(0xFF1080F0, image.at(10, 20));
    EXPECT_EQ(0xFF1080F0, image.at(29, 24));
    EXPECT_EQ(0xFFFFFFFF, image.at(9, 20));
    EXPECT_EQ(0xFFFFFFFF, image.at(30, 24));
}

struct swap_chain_target {
    ComPtr<IDXGISwapChain1> chain;
    ComPtr<ID2D1DeviceContext> context;
};

ComPtr<IDXGISwapChain1> make_swap_chain(ID3D11Device* device, HWND window) {
    ComPtr<IDXGIDevice1> dxgi_device;
    ComPtr<IDXGIAdapter> adapter;
    ComPtr<IDXGIFactory2> factory;
    ComPtr<IDXGISwapChain1> chain;
    DXGI_SWAP_CHAIN_DESC1 description{};
    description.Format = DXGI_FORMAT_B8G8R8A8_UNORM;
    description.SampleDesc.Count = 1;
    description.BufferUsage = DXGI_USAGE_RENDER_TARGET_OUTPUT;
    description.BufferCount = 2;
    description.SwapEffect = DXGI_SWAP_EFFECT_FLIP_SEQUENTIAL;
    if (FAILED(device->QueryInterface(IID_PPV_ARGS(&dxgi_device))) ||
        FAILED(dxgi_device->GetAdapter(&adapter)) || FAILED(adapter->GetParent(IID_PPV_ARGS(&factory))))
        return nullptr;
    factory->CreateSwapChainForHwnd(device, window, &description, nullptr, nullptr, &chain);
    return chain;
}

swap_chain_target make_target(HWND window) {
    swap_chain_target target;
    ComPtr<ID3D11Device> device;
    if (FAILED(D3D11CreateDevice(nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, D3D11_CREATE_DEVICE_BGRA_SUPPORT,
                                 nullptr, 0, D3D11_SDK_VERSION, &device, nullptr, nullptr)))
        return target;
    target.chain = make_swap_chain(device.Get(), window);
    ComPtr<IDXGIDevice> dxgi_device;
    ComPtr<ID2D1Factory1> factory;
    ComPtr<ID2D1Device> d2d_device;
    ComPtr<IDXGISurface> surface;
    ComPtr<ID2D1Bitmap1> bitmap;
    if (!target.chain || FAILED(device.As(&dxgi_device)) ||
        FAILED(D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, __uuidof(ID2D1Factory1), nullptr,
                                 reinterpret_cast<void**>(factory.GetAddressOf()))) ||
        FAILED(factory->CreateDevice(dxgi_device.Get(), &d2d_device)) ||
        FAILED(d2d_device->CreateDeviceContext(D2D1_DEVICE_CONTEXT_OPTIONS_NONE, &target.context)) ||
        FAILED(target.chain->GetBuffer(0, IID_PPV_ARGS(&surface))))
        return {};
    D2D1_BITMAP_PROPERTIES1 properties{};
    properties.pixelFormat = {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_IGNORE};
    properties.bitmapOptions = D2D1_BITMAP_OPTIONS_TARGET | D2D1_BITMAP_OPTIONS_CANNOT_DRAW;
    if (FAILED(target.context->CreateBitmapFromDxgiSurface(surface.Get(), &properties, &bitmap))) return {};
    target.context->SetTarget(bitmap.Get());
    return target;
}

TEST_F(grabbed_window, shows_what_a_swap_chain_presented) {
    const auto target = make_target(window.handle());
    ASSERT_TRUE(target.context);
    ComPtr<ID2D1SolidColorBrush> brush;
    const D2D1_COLOR_F red{1, 0, 0, 1};
    const D2D1_COLOR_F green{0, 1, 0, 1};
    const D2D1_RECT_F area{50, 60, 70, 80};
    ASSERT_GE(target.context->CreateSolidColorBrush(&red, nullptr, &brush), 0);
    target.context->BeginDraw();
    target.context->Clear(&green);
    target.context->FillRectangle(&area, brush.Get());
    ASSERT_GE(target.context->EndDraw(nullptr, nullptr), 0);
    ASSERT_GE(target.chain->Present(0, 0), 0);

    const auto image = grab_when(window.handle(), 0xFF00FF00, 0, 0);
    EXPECT_EQ(0xFF00FF00, image.at(0, 0)) << "the presented picture does not come onto the screen";
    EXPECT_EQ(0xFFFF0000, image.at(50, 60));
    EXPECT_EQ(0xFFFF0000, image.at(69, 79));
    EXPECT_EQ(0xFF00FF00, image.at(70, 79));
    EXPECT_EQ(0xFF00FF00, image.at(299, 199));
}

}  // namespace
}  // namespace test_support
