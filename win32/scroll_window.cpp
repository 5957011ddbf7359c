#include "win32/scroll_window.h"

#include "win32/scroll_layout.h"

#include <algorithm>

namespace win32 {
namespace {

// Bars have no negative pages: where margins leave no room the page is nothing, and the bar and its position
// stay.
UINT bar_page(LONG page) noexcept {
    return static_cast<UINT>(std::max(page, LONG{0}));
}

SCROLLINFO scroll_info(UINT mask) noexcept {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = mask;
    return info;
}

SCROLLINFO read_bar(HWND window, const scroll_axis& axis, UINT mask) noexcept {
    SCROLLINFO info = scroll_info(mask);
    GetScrollInfo(window, axis.bar, &info);
    return info;
}

void set_bar_position(HWND window, const scroll_axis& axis, int position, bool redraw) noexcept {
    SCROLLINFO info = scroll_info(SIF_POS);
    info.nPos = position;
    SetScrollInfo(window, axis.bar, &info, redraw);
}

void set_bar_page(HWND window, const scroll_axis& axis, LONG page) noexcept {
    SCROLLINFO info = scroll_info(SIF_PAGE);
    info.nPage = bar_page(page);
    SetScrollInfo(window, axis.bar, &info, TRUE);
}

void set_bar_range(HWND window, const scroll_axis& axis, LONG first, LONG last, LONG page) noexcept {
    SCROLLINFO info = scroll_info(SIF_RANGE | SIF_PAGE);
    info.nMin = first;
    info.nMax = last;
    info.nPage = bar_page(page);
    SetScrollInfo(window, axis.bar, &info, TRUE);
}

}  // namespace

void scroll_window::scroll_offset_changed(POINT) {}

int scroll_window::line_step(const scroll_axis& axis) const noexcept {
    return axis.bar == SB_HORZ ? line_x : line_y;
}

int& scroll_window::page_step(const scroll_axis& axis) noexcept {
    return axis.bar == SB_HORZ ? page_x : page_y;
}

void scroll_window::set_scroll_margin(RECT new_margin) {
    margin = new_margin;
    const HWND handle = get_window_handle();
    for (const scroll_axis* const axis : scroll_axes) {
        // Kept, clients rely on it: the difference of two widths, which is no extent of anything.
        const LONG room = scroll_layout{client, frame, margin}.page(*axis);
        set_bar_page(handle, *axis, std::min(room, extent(margin, *axis)));
    }
    update_client_rect();
    if (handle) InvalidateRect(handle, nullptr, TRUE);  // null would mean the windows of everybody
}

void scroll_window::set_scroll_region(RECT new_region) {
    for (const scroll_axis* const axis : scroll_axes) {
        const LONG new_extent = extent(new_region, *axis);
        if (new_extent == extent(region, *axis)) continue;
        const LONG room = scroll_layout{client, frame, margin}.page(*axis);
        set_bar_range(get_window_handle(), *axis, new_region.*axis->first, new_region.*axis->last - 1,
                      std::min(new_extent, room));
    }
    region = new_region;
    update_client_rect();  // bars may have come or gone
    update_scroll_offset();
}

void scroll_window::set_scroll_offset(POINT new_offset) {
    for (const scroll_axis* const axis : scroll_axes)
        set_bar_position(get_window_handle(), *axis, new_offset.*axis->position, true);
    update_scroll_offset();
}

void scroll_window::adjust_scroll_offset(SIZE delta) {
    set_scroll_offset({offset.x + delta.cx, offset.y + delta.cy});
}

void scroll_window::update_scroll_offset() {
    const POINT old = offset;
    for (const scroll_axis* const axis : scroll_axes)
        offset.*axis->position = read_bar(get_window_handle(), *axis, SIF_POS).nPos;
    if (offset.x == old.x && offset.y == old.y) return;
    scroll_paint(old.x - offset.x, old.y - offset.y);
    scroll_offset_changed(offset);
}

void scroll_window::update_client_rect() {
    GetClientRect(get_window_handle(), &client);
}

void scroll_window::handle_thumb_track(const scroll_axis& axis) {
    const SCROLLINFO bar = read_bar(get_window_handle(), axis, SIF_POS | SIF_TRACKPOS);
    offset.*axis.position = bar.nTrackPos;
    SIZE moved{};
    moved.*axis.distance = bar.nPos - bar.nTrackPos;
    scroll_paint(moved.cx, moved.cy);
    set_bar_position(get_window_handle(), axis, bar.nTrackPos, false);
    scroll_offset_changed(offset);
}

std::optional<long> scroll_window::on_window_message(MSG message) {
    switch (message.message) {
        case WM_CREATE:
            wmCreate();
            return {};
        case WM_WINDOWPOSCHANGED:
            wmWindowPosChanged(*reinterpret_cast<const WINDOWPOS*>(message.lParam));
            return 0;
        case WM_KEYDOWN:
            wmKeyDown(message.wParam);
            return 0;
        case WM_HSCROLL:
            wmScroll(horizontal_axis, LOWORD(message.wParam));
            return 0;
        case WM_VSCROLL:
            wmScroll(vertical_axis, LOWORD(message.wParam));
            return 0;
        case WM_MOUSEWHEEL:
            wmMouseWheel(message.wParam);
            return 0;
        default:
            return {};
    }
}

void scroll_window::wmCreate() {
    update_client_rect();
}

void scroll_window::wmScroll(const scroll_axis& axis, WORD code) {
    const auto move_by = [&](int distance) {
        SIZE delta{};
        delta.*axis.distance = distance;
        adjust_scroll_offset(delta);
    };
    const auto move_to = [&](LONG position) {
        POINT target = offset;
        target.*axis.position = position;
        set_scroll_offset(target);
    };
    switch (code) {
        case SB_LINEUP:
            return move_by(-line_step(axis));
        case SB_LINEDOWN:
            return move_by(line_step(axis));
        case SB_PAGEUP:
            return move_by(-page_step(axis));
        case SB_PAGEDOWN:
            return move_by(page_step(axis));
        case SB_THUMBTRACK:
            return handle_thumb_track(axis);
        case SB_TOP:
            return move_to(0);
        case SB_BOTTOM:
            return move_to(region.*axis.last - page_step(axis));
        default:
            return;  // the place of SB_THUMBPOSITION has come with SB_THUMBTRACK
    }
}

void scroll_window::wmMouseWheel(WPARAM wparam) {
    adjust_scroll_offset({0, wheel_distance(GET_WHEEL_DELTA_WPARAM(wparam), line_y)});
}

// Vertical for all keys, Left and Right too: kept, clients rely on it.
void scroll_window::wmKeyDown(WPARAM key) {
    const auto code = scroll_code_of_key(key);
    if (!code) return;
    MSG scroll{};
    scroll.hwnd = get_window_handle();
    scroll.message = WM_VSCROLL;
    scroll.wParam = *code;
    on_window_message(scroll);
}

void scroll_window::wmWindowPosChanged(const WINDOWPOS& position) {
    if ((position.flags & SWP_SHOWWINDOW) == 0 && (position.flags & SWP_NOSIZE) != 0) return;
    const HWND handle = get_window_handle();
    RECT resized{};
    GetClientRect(handle, &resized);
    for (const scroll_axis* const axis : scroll_axes) follow_edge(*axis, resized);
    client = resized;
    for (const scroll_axis* const axis : scroll_axes)
        page_step(*axis) = scroll_layout{client, frame, margin}.page(*axis);
    // Kept, clients rely on it: a range of one pixel more than `set_scroll_region` gives.
    for (const scroll_axis* const axis : scroll_axes)
        set_bar_range(handle, *axis, region.*axis->first, region.*axis->last, page_step(*axis));
    update_scroll_offset();
    update_client_rect();  // the bars may have changed it
}

}  // namespace win32
