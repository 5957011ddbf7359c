#include "d2d/win32_window_host.h"

#include "d2d/lower_edge_host.h"

#include <utility>

namespace d2d {

win32_window_host::win32_window_host()
    : lower_edge_host(create_win32_view_lower_edge_host()),
      render_layer(lower_edge_host),
      interface_layer(lower_edge_host) {
    lower_edge_host->set_background_color({1.0f, 1.0f, 1.0f, 1.0f});
}

win32_window_host::win32_window_host(com::ptr<IViewLowerEdge> edge) : win32_window_host() {
    lower_edge_host->set_lower_edge(std::move(edge));
}

win32_window_host::~win32_window_host() {
    lower_edge_host->set_lower_edge(nullptr);
}

std::optional<long> win32_window_host::on_window_message(MSG message) {
    const com::ptr<IWin32InterfaceLayer> layer = interface_layer;  // a handler may end this window
    switch (message.message) {
        case WM_CREATE:
            layer->attach_hwnd(message.hwnd, [this](RECT rect) {
                // None any more: the whole screen would be meant.
                if (get_window_handle()) InvalidateRect(get_window_handle(), &rect, FALSE);
            });
            return window::on_window_message(message);
        case WM_DESTROY: {
            const std::optional<long> result = window::on_window_message(message);
            layer->detach_hwnd(message.hwnd);
            return result;
        }
        default:
            if (const std::optional<long> result = window::on_window_message(message)) return result;
            return layer->on_window_message(message);
    }
}

void win32_window_host::render(ID2D1RenderTarget*, D2D_RECT_F invalid) {
    render_layer->render(invalid);
}

void win32_window_host::acquire_render_target_dependant_resources(ID2D1RenderTarget* target) {
    render_layer->attach_render_target(target);
}

void win32_window_host::release_render_target_dependant_resources(ID2D1RenderTarget* target) {
    render_layer->detach_render_target(target);
}

com::ptr<IViewLowerEdge> win32_window_host::set_lower_edge(com::ptr<IViewLowerEdge> edge) {
    return lower_edge_host->set_lower_edge(std::move(edge));
}

void win32_window_host::install_service(const GUID& id, IUnknown* service) {
    lower_edge_host->install_service(id, service);
}

void win32_window_host::uninstall_service(const GUID& id) {
    lower_edge_host->uninstall_service(id);
}

void win32_window_host::set_upstream_service_provider(IServiceProvider* provider) {
    lower_edge_host->set_upstream_service_provider(provider);
}

void win32_window_host::set_background_color(_D3DCOLORVALUE color) {
    lower_edge_host->set_background_color(color);
}

void win32_window_host::enable_clear_background(bool enable) {
    lower_edge_host->enable_clear_background(enable);
}

}  // namespace d2d
