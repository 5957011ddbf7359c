#include "portable/panel_sizes.h"

#include "portable/layout_arithmetic.h"
#include "win32/error.h"

namespace ui::mossHarbour {
namespace {

/// The size of a window around a client area; a side without limit stays without.
SIZE window_around(SIZE content, const box_lengths& margins, DWORD style, DWORD ex_style) {
    RECT frame{0, 0, sum(content.cx, sum(margins.left, margins.right)),
               sum(content.cy, sum(margins.top, margins.bottom))};
    win32::check(AdjustWindowRectEx(&frame, style, FALSE, ex_style));
    return {content.cx == unbounded_extent ? unbounded_extent : difference(frame.right, frame.left),
            content.cy == unbounded_extent ? unbounded_extent : difference(frame.bottom, frame.top)};
}

}  // namespace

element_metrics panel_sizes::take(const element_metrics& content, DWORD style, DWORD ex_style) {
    const box_lengths kept = distances_around(content, padding);
    outer = {window_around({content.preferred_width, content.preferred_height}, kept, style, ex_style),
             window_around({content.max_width, content.max_height}, kept, style, ex_style),
             window_around({content.min_width, content.min_height}, kept, style, ex_style)};
    margins = kept;
    element_metrics result = content;
    result.margin_left = kept.left;
    result.margin_top = kept.top;
    result.margin_right = kept.right;
    result.margin_bottom = kept.bottom;
    return result;
}

RECT panel_sizes::content_area(const RECT& client) const noexcept {
    return {sum(client.left, margins.left), sum(client.top, margins.top),
            difference(client.right, margins.right), difference(client.bottom, margins.bottom)};
}

void panel_sizes::limit(MINMAXINFO& info) const noexcept {
    info.ptMinTrackSize = {outer.minimum.cx, outer.minimum.cy};
    info.ptMaxTrackSize = {outer.maximum.cx, outer.maximum.cy};
}

bool calls_for_arrangement(HWND window, const WINDOWPOS& change) noexcept {
    if (change.flags & SWP_SHOWWINDOW) return true;
    return !(change.flags & SWP_NOSIZE) && (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE);
}

}  // namespace ui::mossHarbour
