#pragma once

#include "d2d/input/mouse.h"

#include <windows.h>

namespace d2d {

[[nodiscard]] constexpr bool is_mouse_message(UINT message) noexcept {
    return message >= WM_MOUSEFIRST && message <= WM_MOUSEHWHEEL;
}

[[nodiscard]] constexpr bool is_keyboard_message(UINT message) noexcept {
    return message >= WM_KEYFIRST && message <= WM_UNICHAR;
}

/// The position in the `lParam` of a mouse message, which is signed.
[[nodiscard]] POINT message_point(LPARAM packed) noexcept;

/// A pixel of the window in the scene: it is addressed by its centre.
[[nodiscard]] constexpr D2D_POINT_2F pixel_centre(POINT pixel, D2D_POINT_2F origin) noexcept {
    return {static_cast<float>(pixel.x) + 0.5f - origin.x, static_cast<float>(pixel.y) + 0.5f - origin.y};
}

/// The event that a mouse message of `window` stands for. Throws `std::logic_error` for any other message.
[[nodiscard]] input::mouse::event mouse_event_of(const MSG& message, HWND window, D2D_POINT_2F origin);

}  // namespace d2d
