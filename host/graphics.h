#pragma once

#include <d2d1_1.h>
#include <d3d11.h>
#include <dwrite.h>
#include <dxgi1_2.h>

/// The process-wide graphics objects that `d2d::factory` tokens keep alive. The pointers own; take a
/// reference for what outlives a token. For the thread of the user interface alone.
namespace d2d::graphics {

extern ID3D11Device* d3d_device;
extern D3D_FEATURE_LEVEL d3d_feature_level;  // for information
extern ID3D11DeviceContext* d3d_context;
extern IDXGIFactory2* dxgi_factory;
extern ID2D1Factory1* d2d_factory;
extern IDWriteFactory* dwrite_factory;
extern ID2D1Device* d2d_device;
/// Every window draws with this one; it has a target only while a window paints.
extern ID2D1DeviceContext* d2d_context;

/// How many tokens are alive.
[[nodiscard]] unsigned users() noexcept;

void take();
void give_back() noexcept;

}  // namespace d2d::graphics
