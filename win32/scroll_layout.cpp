#include "win32/scroll_layout.h"

#include <algorithm>

namespace win32 {
namespace {

RECT inset(const RECT& rect, const RECT& by) noexcept {
    return {rect.left + by.left, rect.top + by.top, rect.right - by.right, rect.bottom - by.bottom};
}

const scroll_axis& across(const scroll_axis& axis) noexcept {
    return axis.bar == SB_HORZ ? vertical_axis : horizontal_axis;
}

}  // namespace

RECT scroll_layout::area_rect(area part) const noexcept {
    RECT rect = inset(client, frame);
    switch (part) {
        case area::scrolled:
            return inset(rect, margin);
        case area::left_margin:
            rect.right = rect.left + margin.left;
            return rect;
        case area::top_margin:
            rect.bottom = rect.top + margin.top;
            return rect;
        case area::right_margin:
            rect.left = rect.right - margin.right;
            return rect;
        case area::bottom_margin:
            rect.top = rect.bottom - margin.bottom;
            return rect;
        case area::unscrolled:
            break;
    }
    return client;
}

LONG scroll_layout::page(const scroll_axis& axis) const noexcept {
    return extent(area_rect(area::scrolled), axis);
}

RECT scroll_layout::strip_at_moved_edge(const scroll_axis& axis, const RECT& resized) const noexcept {
    const scroll_axis& cross = across(axis);
    const LONG nearer_edge = std::min(resized.*axis.last, client.*axis.last);
    const LONG cross_inset = frame.*cross.last + margin.*cross.last;
    RECT rect{};
    rect.*axis.first = nearer_edge - frame.*axis.last - margin.*axis.last;
    rect.*axis.last = resized.*axis.last - frame.*axis.last;
    rect.*cross.first = client.*cross.first + margin.*cross.first + frame.*cross.first;
    // Kept, clients rely on it: the bottom strip moves with what is beside it to the right.
    rect.*cross.last = client.*cross.last + (cross.bar == SB_HORZ ? cross_inset : -cross_inset);
    return rect;
}

std::optional<POINT> paint_origin(scroll_window::scroll_area area, const RECT& rect, POINT offset) noexcept {
    using part = scroll_window::scroll_area;
    if ((static_cast<int>(area) & static_cast<int>(part::unscrolled)) != 0)
        return POINT{-rect.left, -rect.top};
    for (const scroll_motion& motion : scroll_motions)
        if (motion.area == area)
            return POINT{motion.x * offset.x - rect.left, motion.y * offset.y - rect.top};
    return {};
}

std::optional<WORD> scroll_code_of_key(WPARAM key) noexcept {
    switch (key) {
        case VK_PRIOR:
            return WORD{SB_PAGEUP};
        case VK_NEXT:
            return WORD{SB_PAGEDOWN};
        case VK_END:
            return WORD{SB_BOTTOM};
        case VK_HOME:
            return WORD{SB_TOP};
        case VK_LEFT:
        case VK_UP:
            return WORD{SB_LINEUP};
        case VK_RIGHT:
        case VK_DOWN:
            return WORD{SB_LINEDOWN};
        default:
            return {};
    }
}

long moved_mouse_lparam(long lparam, POINT offset) noexcept {
    const auto half = [](LONG from, LONG by) { return static_cast<WORD>((from + by) & 0xFFFF); };
    return MAKELONG(half(LOWORD(lparam), offset.x), half(HIWORD(lparam), offset.y));
}

}  // namespace win32
