#include "d2d/layered_window_host.h"

#include "d2d/lower_edge_host.h"

#include <utility>

namespace d2d {

layered_window_host::layered_window_host()
    : lower_edge_host(create_win32_view_lower_edge_host()),
      render_layer(lower_edge_host),
      interface_layer(lower_edge_host) {
    lower_edge_host->set_background_color({1.0f, 1.0f, 1.0f, 0.0f});
}

layered_window_host::layered_window_host(com::ptr<IViewLowerEdge> edge) : layered_window_host() {
    lower_edge_host->set_lower_edge(std::move(edge));
}

layered_window_host::~layered_window_host() {
    lower_edge_host->set_lower_edge(nullptr);
}

std::optional<long> layered_window_host::on_window_message(MSG message) {
    const com::ptr<IWin32InterfaceLayer> layer = interface_layer;  // a handler may end this window
    switch (message.message) {
        case WM_CREATE:
            layer->attach_hwnd(message.hwnd, [this](RECT rect) { invalidate(rect); });
            return layered_window::on_window_message(message);
        case WM_DESTROY: {
            const std::optional<long> result = layered_window::on_window_message(message);
            layer->detach_hwnd(message.hwnd);
            return result;
        }
        default:
            if (const std::optional<long> result = layered_window::on_window_message(message)) return result;
            return layer->on_window_message(message);
    }
}

void layered_window_host::render(ID2D1RenderTarget*, D2D_RECT_F invalid) {
    render_layer->render(invalid);
}

void layered_window_host::acquire_render_target_dependant_resources(ID2D1RenderTarget* drawn_on) {
    render_layer->attach_render_target(drawn_on);
}

void layered_window_host::release_render_target_dependant_resources(ID2D1RenderTarget* drawn_on) {
    render_layer->detach_render_target(drawn_on);
}

void layered_window_host::invalidate(RECT) {
    redraw();
}

com::ptr<IViewLowerEdge> layered_window_host::set_lower_edge(com::ptr<IViewLowerEdge> edge) {
    return lower_edge_host->set_lower_edge(std::move(edge));
}

void layered_window_host::install_service(const GUID& id, IUnknown* service) {
    lower_edge_host->install_service(id, service);
}

void layered_window_host::uninstall_service(const GUID& id) {
    lower_edge_host->uninstall_service(id);
}

void layered_window_host::set_upstream_service_provider(IServiceProvider* provider) {
    lower_edge_host->set_upstream_service_provider(provider);
}

void layered_window_host::set_origin(D2D_POINT_2F origin) {
    lower_edge_host->set_origin(origin);
}

}  // namespace d2d
