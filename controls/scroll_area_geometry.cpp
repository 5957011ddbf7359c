#include "controls/scroll_area_geometry.h"

#include "scene/rectangle.h"

#include <cmath>

#include <windows.h>

namespace d2d {
namespace {

constexpr float thickness_of(bool bar_shown) noexcept {
    return bar_shown ? scroll_area_bar_thickness : 0;
}

/// A limit that is not a number gives way to the other one.
float clamped(float position, float first, float last) noexcept {
    const float limited = position < last ? position : last;
    return limited > first ? limited : first;
}

/// What alignment adds to an offset.
float alignment_adjustment(float content, float view, int alignment) noexcept {
    if (!(content < view) || alignment < 0) return 0;
    const float room = view - content;
    return -std::round(alignment == 0 ? room * 0.5f : room);
}

/// How far towards a corner of the content a turn of the wheel goes.
std::optional<D2D_POINT_2F> diagonal_movement(bool towards_start, D2D_POINT_2F position,
                                              const D2D_RECT_F& content, D2D_SIZE_F view) noexcept {
    const D2D_POINT_2F target = towards_start
                                    ? D2D_POINT_2F{content.left, content.top}
                                    : D2D_POINT_2F{content.right - view.width, content.bottom - view.height};
    const D2D_POINT_2F way{target.x - position.x, target.y - position.y};
    if (way.x == 0 && way.y == 0) return std::nullopt;
    const float share = std::hypot(view.width, view.height) / 7 / std::hypot(way.x, way.y);
    return D2D_POINT_2F{way.x * share, way.y * share};
}

scroll_wheel_mode exchanged_by_shift(scroll_wheel_mode mode) noexcept {
    switch (mode) {
        case scroll_wheel_mode::down:
            return scroll_wheel_mode::across;
        case scroll_wheel_mode::across:
            return scroll_wheel_mode::down;
        default:
            return mode;
    }
}

}  // namespace

scroll_bars_shown needed_scroll_bars(D2D_SIZE_F view, D2D_SIZE_F content) noexcept {
    scroll_bars_shown bars{view.height < content.height, view.width < content.width};
    if (bars.horizontal && !bars.vertical) {
        bars.vertical = view.height - scroll_area_bar_thickness < content.height;
    } else if (bars.vertical && !bars.horizontal) {
        bars.horizontal = view.width - scroll_area_bar_thickness < content.width;
    }
    return bars;
}

D2D_RECT_F without_scroll_bars(const D2D_RECT_F& area, scroll_bars_shown bars) noexcept {
    return {area.left, area.top, area.right - thickness_of(bars.vertical),
            area.bottom - thickness_of(bars.horizontal)};
}

D2D_POINT_2F clamped_scroll_position(D2D_POINT_2F position, const D2D_RECT_F& content,
                                     D2D_SIZE_F view) noexcept {
    return {clamped(position.x, content.left, content.right - view.width),
            clamped(position.y, content.top, content.bottom - view.height)};
}

D2D_POINT_2F scroll_offset(D2D_POINT_2F position, D2D_SIZE_F content, D2D_SIZE_F view,
                           scroll_area_alignment alignment) noexcept {
    return {std::round(position.x) + alignment_adjustment(content.width, view.width, alignment.x),
            std::round(position.y) + alignment_adjustment(content.height, view.height, alignment.y)};
}

std::optional<D2D_POINT_2F> wheel_movement(const input::mouse::event& event, scroll_wheel_mode mode,
                                           D2D_POINT_2F position, const D2D_RECT_F& content,
                                           D2D_SIZE_F view) noexcept {
    // Kept: a turn by nothing moves as a forward one does, and on the diagonal as a backward one.
    const float direction = event.wheel_delta < 0 ? 1.0f : -1.0f;
    if (event.type == input::mouse::event_type::horizontal_wheel) {
        mode = scroll_wheel_mode::across;
    } else if (event.flags & MK_SHIFT) {
        mode = exchanged_by_shift(mode);
    }
    switch (mode) {
        case scroll_wheel_mode::down:
            return D2D_POINT_2F{0, direction * (view.height / 10)};
        case scroll_wheel_mode::across:
            return D2D_POINT_2F{direction * (view.width / 10), 0};
        case scroll_wheel_mode::diagonal:
            return diagonal_movement(event.wheel_delta > 0, position, content, view);
        default:
            return std::nullopt;
    }
}

scroll_area_layout::scroll_area_layout(const D2D_RECT_F& area, scroll_bars_shown bars, const D2D_RECT_F& view,
                                       const D2D_RECT_F& fixed) noexcept
    : area_(area),
      view_(view),
      outer_(without_scroll_bars(area, bars)),
      inner_{outer_.left + fixed.left, outer_.top + fixed.top, outer_.right - fixed.right,
             outer_.bottom - fixed.bottom} {}

scroll_area_part scroll_area_layout::viewport() const noexcept {
    return {{view_.left, view_.top}, scene::size_of(view_)};
}

scroll_area_part scroll_area_layout::fixed_part(scroll_area_side side, float thickness) const noexcept {
    return part_along(outer_, side, thickness);
}

scroll_area_part scroll_area_layout::scrolled_part(scroll_area_side side, float thickness) const noexcept {
    return part_along(inner_, side, thickness);
}

/// A part as long as the view, along the inside of an edge.
scroll_area_part scroll_area_layout::part_along(const D2D_RECT_F& edges, scroll_area_side side,
                                                float thickness) const noexcept {
    const auto [width, height] = scene::size_of(view_);
    switch (side) {
        case scroll_area_side::left:
            return {{edges.left, view_.top}, {thickness, height}};
        case scroll_area_side::top:
            return {{view_.left, edges.top}, {width, thickness}};
        case scroll_area_side::right:
            return {{edges.right - thickness, view_.top}, {thickness, height}};
        case scroll_area_side::bottom:
            return {{view_.left, edges.bottom - thickness}, {width, thickness}};
    }
    return {};
}

D2D_RECT_F scroll_area_layout::vertical_bar() const noexcept {
    return {area_.right - scroll_area_bar_thickness, area_.top, area_.right, outer_.bottom};
}

D2D_RECT_F scroll_area_layout::horizontal_bar() const noexcept {
    return {area_.left, area_.bottom - scroll_area_bar_thickness, outer_.right, area_.bottom};
}

}  // namespace d2d
