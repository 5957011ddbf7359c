#pragma once

#include <cstdint>
#include <optional>

#include <dcommon.h>

namespace d2d::input::mouse {

/// A mouse button. Both X buttons are `extended`.
enum class button : int { left = 0, right = 1, middle = 4, extended = 5 };

/// What happened, as it stands in `event::type`.
namespace event_type {
inline constexpr std::int32_t enter = 0;             ///< the mouse entered the window, or a node
inline constexpr std::int32_t move = 1;              ///< it moved
inline constexpr std::int32_t leave = 2;             ///< it left the window, or a node
inline constexpr std::int32_t button_down = 3;       ///< a button went down
inline constexpr std::int32_t button_up = 4;         ///< a button went up
inline constexpr std::int32_t double_click = 5;      ///< a button went down twice, quickly
inline constexpr std::int32_t wheel = 6;             ///< the wheel turned
inline constexpr std::int32_t horizontal_wheel = 7;  ///< the horizontal wheel turned
inline constexpr std::int32_t hover = 8;             ///< the mouse rested
inline constexpr std::int32_t hover_end = 9;         ///< it rests no longer
}  // namespace event_type

/// A mouse event, passed by value.
struct event {
    /// One of `event_type`.
    std::int32_t type;
    /// The button of a press, a release or a double click.
    std::optional<mouse::button> button;
    /// `MK_` key-state flags.
    std::uint32_t flags;
    /// In the space of the node that receives the event, in pixels; a pixel is addressed by its centre.
    D2D_POINT_2F position;
    /// Signed rotation, 120 for a notch; 0 unless a wheel turned.
    std::int32_t wheel_delta;
};

}  // namespace d2d::input::mouse
