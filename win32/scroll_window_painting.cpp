#include "win32/scroll_layout.h"

namespace win32 {
namespace {

void scroll_pixels(HWND window, const RECT& rect, int dx, int dy) noexcept {
    ScrollWindowEx(window, dx, dy, &rect, &rect, nullptr, nullptr, SW_INVALIDATE | SW_ERASE);
}

}  // namespace

scroll_window::dc_state::dc_state(HDC context) : dc(context), saved(SaveDC(context)) {}

scroll_window::dc_state::~dc_state() {
    RestoreDC(dc, saved);
}

RECT scroll_window::get_scroll_area_rect(scroll_area area) const {
    return scroll_layout{client, frame, margin}.area_rect(area);
}

void scroll_window::scroll_paint(int dx, int dy) {
    for (const scroll_motion& motion : scroll_motions) {
        const RECT rect = get_scroll_area_rect(motion.area);
        if (IsRectEmpty(&rect)) continue;
        scroll_pixels(get_window_handle(), rect, motion.x * dx, motion.y * dy);
    }
}

// The strip at the far edge keeps its pixels when the edge moves.
void scroll_window::follow_edge(const scroll_axis& axis, const RECT& resized) const {
    const LONG distance = resized.*axis.last - client.*axis.last;
    if (margin.*axis.last <= 0 || distance == 0) return;
    SIZE moved{};
    moved.*axis.distance = distance;
    const RECT strip = scroll_layout{client, frame, margin}.strip_at_moved_edge(axis, resized);
    scroll_pixels(get_window_handle(), strip, moved.cx, moved.cy);
}

long scroll_window::adjust_mouse_lparam(long lparam) const {
    return moved_mouse_lparam(lparam, offset);
}

std::shared_ptr<scroll_window::dc_state> scroll_window::prepare_paint_context(scroll_area area,
                                                                              paint_context& context) {
    const HDC dc = context;
    auto state = std::make_shared<dc_state>(dc);
    const RECT rect = get_scroll_area_rect(area);
    IntersectClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
    const auto origin = paint_origin(area, rect, offset);
    if (!origin) return state;
    SetWindowOrgEx(dc, origin->x, origin->y, nullptr);
    if (area == scroll_area::left_margin || area == scroll_area::right_margin)
        SetBrushOrgEx(dc, rect.left, origin->y, nullptr);
    return state;
}

}  // namespace win32
