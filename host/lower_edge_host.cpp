#include "d2d/lower_edge_host.h"

#include "com/object.h"
#include "host/pixel_rect.h"

#include <limits>
#include <stdexcept>
#include <utility>

// Compilers differ in where an explicit instantiation says that it is exported; see the header.
#if defined(_MSC_VER)
template class MOSSHARBOUR_API
    com::base_object<com::object_base, d2d::scene::IDeferredExecutionService, d2d::IWin32InterfaceLayer,
                     d2d::IRenderTargetLayer, d2d::IViewLowerEdgeHost, IServiceProvider>;
#else
template class com::base_object<com::object_base, d2d::scene::IDeferredExecutionService,
                                d2d::IWin32InterfaceLayer, d2d::IRenderTargetLayer, d2d::IViewLowerEdgeHost,
                                IServiceProvider>;
#endif

namespace d2d {
namespace {

constexpr RECT everything{std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::min(),
                          std::numeric_limits<LONG>::max(), std::numeric_limits<LONG>::max()};

bool same_color(const _D3DCOLORVALUE& a, const _D3DCOLORVALUE& b) noexcept {
    return a.a == b.a && a.b == b.b && a.g == b.g && a.r == b.r;
}

}  // namespace

lower_edge_host::lower_edge_host() = default;
lower_edge_host::~lower_edge_host() = default;

void lower_edge_host::uninitialize() {
    input.lower_edge.reset();
    if (const com::ptr<IViewLowerEdge> former = std::exchange(lower_edge, nullptr)) former->detach_site(this);
}

ULONG lower_edge_host::AddRef() noexcept {
    return base_object::AddRef();
}

ULONG lower_edge_host::Release() noexcept {
    return base_object::Release();
}

bool lower_edge_host::request_focus() {
    return SetFocus(hwnd) != hwnd;
}

void lower_edge_host::bounds_changed(D2D_RECT_F) {}

void lower_edge_host::invalidate_rect(D2D_RECT_F rect) {
    if (invalidate) invalidate(to_pixels(rect, origin));
}

void lower_edge_host::attach_hwnd(HWND window_handle, std::function<void(RECT)> invalidate_function) {
    hwnd = window_handle;
    input.hwnd = window_handle;
    invalidate = std::move(invalidate_function);
}

// The function stays: kept, a window that comes back brings its own.
void lower_edge_host::detach_hwnd(HWND) {
    hwnd = nullptr;
    input.hwnd = nullptr;
}

std::optional<long> lower_edge_host::on_window_message(MSG message) {
    return input.on_window_message(message);
}

void lower_edge_host::attach_render_target(ID2D1RenderTarget* target) {
    if (lower_edge) lower_edge->attach_render_target(target);
    render_target = target;
}

void lower_edge_host::detach_render_target(ID2D1RenderTarget*) {
    if (lower_edge) lower_edge->detach_render_target(render_target);
    render_target = nullptr;
}

void lower_edge_host::render(D2D_RECT_F invalid) {
    if (clear_background) render_target->Clear(&background_color);
    const com::ptr<IViewLowerEdge> edge = lower_edge;
    if (edge) edge->render(invalid, D2D1::Matrix3x2F::Translation(origin.x, origin.y));
}

void lower_edge_host::set_origin(D2D_POINT_2F new_origin) {
    origin = new_origin;
    input.origin = new_origin;
}

void lower_edge_host::set_background_color(_D3DCOLORVALUE color) {
    if (same_color(color, background_color)) return;
    background_color = color;
    if (invalidate) invalidate(everything);
}

void lower_edge_host::enable_clear_background(bool enable) {
    clear_background = enable;
}

void lower_edge_host::set_default_cursor(HCURSOR cursor) {
    input.default_cursor = cursor;
}

com::ptr<IViewLowerEdge> lower_edge_host::set_lower_edge(com::ptr<IViewLowerEdge> edge) {
    com::ptr<IViewLowerEdge> former = lower_edge;
    if (former) {
        if (render_target) former->detach_render_target(render_target);
        static_cast<void>(input.set_lower_edge(nullptr));
        former->detach_site(this);
    }
    lower_edge = edge;
    if (edge) {
        edge->attach_site(this);
        if (render_target) edge->attach_render_target(render_target);
        static_cast<void>(input.set_lower_edge(std::move(edge)));
    }
    return former;
}

com::ptr<IViewLowerEdgeHost> create_win32_view_lower_edge_host() {
    return com::create_object<lower_edge_host>();
}

}  // namespace d2d
