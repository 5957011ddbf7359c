// The render target of a window, and its paint.

#include "com/check.h"
#include "d2d/window.h"
#include "host/graphics.h"
#include "host/pixel_rect.h"
#include "win32/scope_exit.h"

namespace d2d {

using win32::scope_exit;

/// False when the target was lost.
bool window::on_paint() {
    ID2D1DeviceContext* const context = graphics::d2d_context;
    const scope_exit forget_target([&] { context->SetTarget(nullptr); });
    start_target(context);
    if (paint_frame(context) == static_cast<HRESULT>(D2DERR_RECREATE_TARGET)) {
        lose_target(context);
        return false;
    }
    ValidateRect(get_window_handle(), nullptr);
    return true;
}

void window::start_target(ID2D1DeviceContext* context) {
    if (swap_chain) {
        context->SetTarget(d2d_bitmap.get());
        return;
    }
    acquire_render_target();
    context->SetTarget(d2d_bitmap.get());
    acquire_render_target_dependant_resources(context);
    acquire_render_target_size_dependant_resources(context, false);
}

/// Draws and presents the invalid part, without `BeginPaint`: what is valid then depends on the result. The
/// result is that of `EndDraw`.
HRESULT window::paint_frame(ID2D1DeviceContext* context) {
    RECT invalid{};
    GetUpdateRect(get_window_handle(), &invalid, FALSE);
    const D2D_RECT_F clip = to_rect_f(invalid);
    const com::ptr<IDXGISwapChain1> chain = swap_chain;
    HRESULT drawn = S_OK;
    {
        const scope_exit present([&] {
            DXGI_PRESENT_PARAMETERS parameters{};
            parameters.DirtyRectsCount = 1;
            parameters.pDirtyRects = &invalid;
            static_cast<void>(chain->Present1(0, 0, &parameters));
        });
        context->BeginDraw();
        const scope_exit end_draw([&] { drawn = context->EndDraw(); });
        context->SetTransform(D2D1::Matrix3x2F::Identity());
        context->PushAxisAlignedClip(clip, D2D1_ANTIALIAS_MODE_PER_PRIMITIVE);
        const scope_exit pop_clip([&] { context->PopAxisAlignedClip(); });
        render(context, clip);
    }
    return drawn;
}

/// Everything but the window's own target stays; the paint that this asks for makes another.
void window::lose_target(ID2D1DeviceContext* context) {
    release_render_target_size_dependant_resources(context, false);
    release_render_target_dependant_resources(context);
    context->SetTarget(nullptr);
    release_render_target();
    InvalidateRect(get_window_handle(), nullptr, FALSE);
}

void window::acquire_render_target() {
    DXGI_SWAP_CHAIN_DESC1 description{};  // size 0: that of the window
    description.Format = DXGI_FORMAT_B8G8R8A8_UNORM;
    description.SampleDesc.Count = 1;
    description.BufferUsage = DXGI_USAGE_RENDER_TARGET_OUTPUT;
    description.BufferCount = 2;
    description.Scaling = DXGI_SCALING_NONE;
    description.SwapEffect = DXGI_SWAP_EFFECT_FLIP_SEQUENTIAL;
    description.AlphaMode = DXGI_ALPHA_MODE_UNSPECIFIED;
    com::check(graphics::dxgi_factory->CreateSwapChainForHwnd(
        graphics::d3d_device, get_window_handle(), &description, nullptr, nullptr, swap_chain.put()));
    acquire_d2d_bitmap();
}

void window::release_render_target() noexcept {
    release_d2d_bitmap();
    swap_chain.reset();
}

void window::acquire_d2d_bitmap() {
    com::ptr<IDXGISurface> surface;
    com::check(swap_chain->GetBuffer(0, com::guid_of<IDXGISurface>(), surface.put_void()));
    D2D1_BITMAP_PROPERTIES1 properties{};
    properties.pixelFormat = {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_IGNORE};
    properties.dpiX = 96.0f;
    properties.dpiY = 96.0f;
    properties.bitmapOptions = D2D1_BITMAP_OPTIONS_TARGET | D2D1_BITMAP_OPTIONS_CANNOT_DRAW;
    com::check(
        graphics::d2d_context->CreateBitmapFromDxgiSurface(surface.get(), &properties, d2d_bitmap.put()));
}

void window::release_d2d_bitmap() noexcept {
    d2d_bitmap.reset();
}

}  // namespace d2d
