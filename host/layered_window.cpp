#include "d2d/layered_window.h"

#include "com/check.h"
#include "host/graphics.h"
#include "host/imaging.h"
#include "win32/scope_exit.h"

namespace d2d {

// All ahead of the token.
layered_window::~layered_window() {
    gdi_target.reset();
    target.reset();
    wic_bitmap.reset();
}

void layered_window::create(HWND parent, const wchar_t* title, RECT rect, bool transparent, bool topmost) {
    position = {rect.left, rect.top};
    extent = {rect.right - rect.left, rect.bottom - rect.top};
    alpha = 255;
    DWORD ex_style = WS_EX_LAYERED;
    if (transparent) ex_style |= WS_EX_TRANSPARENT;
    if (topmost) ex_style |= WS_EX_TOPMOST;
    create_window(ex_style, title, WS_POPUP, position.x, position.y, extent.cx, extent.cy, parent, nullptr);
}

std::optional<long> layered_window::on_window_message(MSG message) {
    if (message.message == WM_CREATE) {
        acquire_independant_resources();
        create_bitmap_and_render_target();
        redraw();
    } else if (message.message == WM_DESTROY) {
        destroy_render_target_and_bitmap();
        release_independant_resources();
    }
    return {};
}

void layered_window::render(ID2D1RenderTarget* drawn_on, D2D_RECT_F) {
    // Violet shows a window that forgot to draw.
    constexpr D2D1_COLOR_F violet{0.25f, 0.0f, 0.5f, 0.75f};
    drawn_on->Clear(&violet);
}

void layered_window::acquire_independant_resources() {}
void layered_window::release_independant_resources() {}
void layered_window::acquire_render_target_dependant_resources(ID2D1RenderTarget*) {}
void layered_window::release_render_target_dependant_resources(ID2D1RenderTarget*) {}
void layered_window::acquire_render_target_size_dependant_resources(ID2D1RenderTarget*, bool) {}
void layered_window::release_render_target_size_dependant_resources(ID2D1RenderTarget*, bool) {}

D2D_SIZE_U layered_window::render_target_size() const noexcept {
    return {static_cast<UINT32>(extent.cx), static_cast<UINT32>(extent.cy)};
}

BLENDFUNCTION layered_window::blend() const noexcept {
    return {AC_SRC_OVER, 0, static_cast<BYTE>(alpha), AC_SRC_ALPHA};
}

void layered_window::set_alpha(int new_alpha) {
    alpha = new_alpha & 0xFF;
    BLENDFUNCTION blending = blend();
    UpdateLayeredWindow(get_window_handle(), nullptr, nullptr, nullptr, nullptr, nullptr, 0, &blending,
                        ULW_ALPHA);
}

void layered_window::move(long x, long y) {
    position = {x, y};
    UpdateLayeredWindow(get_window_handle(), nullptr, &position, nullptr, nullptr, nullptr, 0, nullptr, 0);
}

void layered_window::move(POINT to) {
    move(to.x, to.y);
}

void layered_window::move(long x, long y, int new_alpha) {
    position = {x, y};
    alpha = new_alpha & 0xFF;
    BLENDFUNCTION blending = blend();
    UpdateLayeredWindow(get_window_handle(), nullptr, &position, nullptr, nullptr, nullptr, 0, &blending,
                        ULW_ALPHA);
}

void layered_window::move(POINT to, int new_alpha) {
    move(to.x, to.y, new_alpha);
}

void layered_window::move_and_paint(long x, long y, long width, long height) {
    position = {x, y};
    resize({width, height});
    redraw();
    ValidateRect(get_window_handle(), nullptr);
}

void layered_window::move_and_paint(RECT rect) {
    move_and_paint(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

void layered_window::resize(SIZE new_size) {
    if (new_size.cx == extent.cx && new_size.cy == extent.cy) return;
    destroy_render_target_and_bitmap();
    extent = new_size;
    create_bitmap_and_render_target();
}

void layered_window::redraw() {
    if (!target) return;
    const com::ptr<ID2D1RenderTarget> drawn_on = target;
    drawn_on->BeginDraw();
    const win32::scope_exit end_draw([&] { static_cast<void>(drawn_on->EndDraw()); });
    render(drawn_on.get(), {0.0f, 0.0f, static_cast<float>(extent.cx), static_cast<float>(extent.cy)});
    show_picture();
}

/// Hands what is drawn so far to the window system, while the drawing goes on.
void layered_window::show_picture() {
    HDC picture = nullptr;
    com::check(gdi_target->GetDC(D2D1_DC_INITIALIZE_MODE_COPY, &picture));
    POINT from{};
    BLENDFUNCTION blending = blend();
    UpdateLayeredWindow(get_window_handle(), nullptr, &position, &extent, picture, &from, 0, &blending,
                        ULW_ALPHA);
    gdi_target->ReleaseDC(nullptr);
}

void layered_window::create_bitmap_and_render_target() {
    const D2D_SIZE_U pixels = render_target_size();
    com::check(imaging_hold::wic_factory()->CreateBitmap(
        pixels.width, pixels.height, GUID_WICPixelFormat32bppPBGRA, WICBitmapCacheOnLoad, wic_bitmap.put()));
    D2D1_RENDER_TARGET_PROPERTIES properties{};  // the default where nothing is said
    properties.pixelFormat = {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED};
    properties.usage = D2D1_RENDER_TARGET_USAGE_GDI_COMPATIBLE;
    com::check(
        graphics::d2d_factory->CreateWicBitmapRenderTarget(wic_bitmap.get(), &properties, target.put()));
    gdi_target = com::ptr<ID2D1GdiInteropRenderTarget>(target);
    acquire_render_target_dependant_resources(target.get());
    acquire_render_target_size_dependant_resources(target.get(), false);
}

void layered_window::destroy_render_target_and_bitmap() {
    if (target) {
        release_render_target_size_dependant_resources(target.get(), false);
        release_render_target_dependant_resources(target.get());
        gdi_target.reset();
        target.reset();
    }
    wic_bitmap.reset();
}

}  // namespace d2d
