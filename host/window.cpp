#include "d2d/window.h"

#include "host/graphics.h"

namespace d2d {

window::~window() {
    release_render_target();
}

std::optional<long> window::on_window_message(MSG message) {
    switch (message.message) {
        case WM_CREATE:
            on_create();
            break;
        case WM_SIZE:
            on_size(LOWORD(message.lParam), HIWORD(message.lParam));
            break;
        case WM_PAINT:
            // The default treatment would validate what a lost target has just made invalid.
            if (!on_paint()) return 0;
            break;
        case WM_DESTROY:
            on_destroy();
            break;
        default:
            break;
    }
    return {};
}

void window::render(ID2D1RenderTarget* target, D2D_RECT_F) {
    // Green shows a window that forgot to draw.
    constexpr D2D1_COLOR_F green{50.0f / 255.0f, 205.0f / 255.0f, 50.0f / 255.0f, 1.0f};
    target->Clear(&green);
}

void window::acquire_independant_resources() {}
void window::release_independant_resources() {}
void window::acquire_render_target_dependant_resources(ID2D1RenderTarget*) {}
void window::release_render_target_dependant_resources(ID2D1RenderTarget*) {}
void window::acquire_render_target_size_dependant_resources(ID2D1RenderTarget*, bool) {}
void window::release_render_target_size_dependant_resources(ID2D1RenderTarget*, bool) {}

ID2D1RenderTarget* window::render_target() const noexcept {
    return graphics::d2d_context;
}

void window::on_create() {
    acquire_independant_resources();
    RECT client{};
    GetClientRect(get_window_handle(), &client);
    width = static_cast<unsigned>(client.right - client.left);
    height = static_cast<unsigned>(client.bottom - client.top);
}

void window::on_size(UINT new_width, UINT new_height) {
    if (!swap_chain) {
        width = new_width;
        height = new_height;
        return;
    }
    if (new_width == width && new_height == height) return;
    ID2D1DeviceContext* const context = graphics::d2d_context;
    release_render_target_size_dependant_resources(context, true);
    release_d2d_bitmap();
    width = new_width;
    height = new_height;
    static_cast<void>(swap_chain->ResizeBuffers(2, 0, 0, DXGI_FORMAT_B8G8R8A8_UNORM, 0));
    acquire_d2d_bitmap();
    acquire_render_target_size_dependant_resources(context, true);
    InvalidateRect(get_window_handle(), nullptr, FALSE);
}

void window::on_destroy() {
    if (swap_chain) {
        ID2D1DeviceContext* const context = graphics::d2d_context;
        release_render_target_size_dependant_resources(context, false);
        release_render_target_dependant_resources(context);
        release_render_target();
    }
    release_independant_resources();
}

}  // namespace d2d
