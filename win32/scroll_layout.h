#pragma once

#include "win32/scroll_window.h"

#include <array>
#include <optional>

namespace win32 {

/// What differs between the two directions of scrolling.
struct scroll_axis {
    int bar;  ///< SB_HORZ or SB_VERT
    LONG RECT::*first;
    LONG RECT::*last;
    LONG POINT::*position;
    LONG SIZE::*distance;
};

inline constexpr scroll_axis horizontal_axis{SB_HORZ, &RECT::left, &RECT::right, &POINT::x, &SIZE::cx};
inline constexpr scroll_axis vertical_axis{SB_VERT, &RECT::top, &RECT::bottom, &POINT::y, &SIZE::cy};
inline constexpr std::array<const scroll_axis*, 2> scroll_axes{&horizontal_axis, &vertical_axis};

[[nodiscard]] constexpr LONG extent(const RECT& rect, const scroll_axis& axis) noexcept {
    return rect.*axis.last - rect.*axis.first;
}

/// Where the parts of a scroll window lie.
struct scroll_layout {
    RECT client;
    RECT frame;
    RECT margin;

    using area = scroll_window::scroll_area;

    /// The rectangle of a part; the whole client area for what is no single part.
    [[nodiscard]] RECT area_rect(area part) const noexcept;
    /// The extent of the scrolled part, negative where frame and margins have no room.
    [[nodiscard]] LONG page(const scroll_axis& axis) const noexcept;
    /// What moves with the far edge along `axis` when the client area becomes `resized`: from the strip's
    /// first pixel, old or new, to the frame.
    [[nodiscard]] RECT strip_at_moved_edge(const scroll_axis& axis, const RECT& resized) const noexcept;
};

/// A part that scrolls, and whether it does along each axis: 1 or 0.
struct scroll_motion {
    scroll_window::scroll_area area;
    int x;
    int y;
};

inline constexpr std::array scroll_motions{
    scroll_motion{scroll_window::scroll_area::scrolled, 1, 1},
    scroll_motion{scroll_window::scroll_area::left_margin, 0, 1},
    scroll_motion{scroll_window::scroll_area::top_margin, 1, 0},
    scroll_motion{scroll_window::scroll_area::right_margin, 0, 1},
    scroll_motion{scroll_window::scroll_area::bottom_margin, 1, 0},
};

/// The logical point that a device context's origin stands for while a part is painted; none for what is no
/// part.
[[nodiscard]] std::optional<POINT> paint_origin(scroll_window::scroll_area area, const RECT& rect,
                                                POINT offset) noexcept;

/// How far a turn of the wheel scrolls: three lines for each notch, towards the user downwards.
[[nodiscard]] constexpr int wheel_distance(int delta, int line) noexcept {
    return delta / -40 * line;
}

/// The code of a scroll message that a key stands for.
[[nodiscard]] std::optional<WORD> scroll_code_of_key(WPARAM key) noexcept;

/// The point of a mouse message's `lParam`, moved by `offset`; each half is cut to 16 bits.
[[nodiscard]] long moved_mouse_lparam(long lparam, POINT offset) noexcept;

}  // namespace win32
