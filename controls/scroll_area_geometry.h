#pragma once

#include "d2d/input/mouse.h"

#include <array>
#include <optional>

#include <d2d1.h>

namespace d2d {

// The arithmetic of scroll areas, without state. Rectangles of parts are in the space of the area's node;
// bounds and positions are in the space of the content.

/// Thickness of a scroll area's bars.
inline constexpr float scroll_area_bar_thickness = 12;

/// The sides of a scroll area, in the order of their numbers.
enum class scroll_area_side : int { left = 0, top = 1, right = 2, bottom = 3 };

inline constexpr std::array scroll_area_sides{scroll_area_side::left, scroll_area_side::top,
                                              scroll_area_side::right, scroll_area_side::bottom};

struct scroll_bars_shown {
    bool vertical = false;
    bool horizontal = false;

    bool operator==(const scroll_bars_shown&) const = default;
};

/// The bars that content needs in a view that is `view` large without them. Each takes room from the view,
/// so one may bring the other.
[[nodiscard]] scroll_bars_shown needed_scroll_bars(D2D_SIZE_F view, D2D_SIZE_F content) noexcept;

/// What the bars leave of the rectangle of an area.
[[nodiscard]] D2D_RECT_F without_scroll_bars(const D2D_RECT_F& area, scroll_bars_shown bars) noexcept;

/// The position nearest to `position` that shows nothing beyond the right and lower edges of the content, or
/// else its upper left corner. One that is not a number counts as beyond.
[[nodiscard]] D2D_POINT_2F clamped_scroll_position(D2D_POINT_2F position, const D2D_RECT_F& content,
                                                   D2D_SIZE_F view) noexcept;

/// Where content sits that is smaller than the view, on each axis: below 0 at the start, 0 in the middle,
/// above 0 at the end.
struct scroll_area_alignment {
    int x = -1;
    int y = -1;
};

/// What content is moved back by, in whole pixels, so that `position` comes into the corner of the view, or
/// the content where its alignment says.
[[nodiscard]] D2D_POINT_2F scroll_offset(D2D_POINT_2F position, D2D_SIZE_F content, D2D_SIZE_F view,
                                         scroll_area_alignment alignment) noexcept;

/// How the wheel moves the view. The numbers are those of `ui::IScrollArea::set_wheel_mode`.
enum class scroll_wheel_mode : int { down = 0, across = 1, diagonal = 2 };

/// How far a turn of the wheel scrolls, before clamping; nothing where it scrolls nowhere. Only the sign of
/// the turn counts.
[[nodiscard]] std::optional<D2D_POINT_2F> wheel_movement(const input::mouse::event& event,
                                                         scroll_wheel_mode mode, D2D_POINT_2F position,
                                                         const D2D_RECT_F& content, D2D_SIZE_F view) noexcept;

/// A part of a scroll area: it has its origin at a point of the area and is clipped to its size.
struct scroll_area_part {
    D2D_POINT_2F origin;
    D2D_SIZE_F size;
};

/// Where the parts of a scroll area lie.
class scroll_area_layout {
public:
    /// `view` is what margins and bars leave of `area`, `fixed` has the thicknesses of the margins' fixed
    /// parts.
    scroll_area_layout(const D2D_RECT_F& area, scroll_bars_shown bars, const D2D_RECT_F& view,
                       const D2D_RECT_F& fixed) noexcept;

    [[nodiscard]] scroll_area_part viewport() const noexcept;
    /// The fixed part of a margin: at the outer edge, as long as the view.
    [[nodiscard]] scroll_area_part fixed_part(scroll_area_side side, float thickness) const noexcept;
    /// The scrolled part of a margin: inside the fixed one.
    [[nodiscard]] scroll_area_part scrolled_part(scroll_area_side side, float thickness) const noexcept;
    [[nodiscard]] D2D_RECT_F vertical_bar() const noexcept;
    [[nodiscard]] D2D_RECT_F horizontal_bar() const noexcept;

private:
    [[nodiscard]] scroll_area_part part_along(const D2D_RECT_F& edges, scroll_area_side side,
                                              float thickness) const noexcept;

    D2D_RECT_F area_;
    D2D_RECT_F view_;
    D2D_RECT_F outer_;  // the area without its bars
    D2D_RECT_F inner_;  // that without the fixed parts
};

}  // namespace d2d
