#pragma once

#include <d2d1.h>
#include <windows.h>

namespace d2d {

[[nodiscard]] constexpr D2D_RECT_F to_rect_f(const RECT& rect) noexcept {
    return {static_cast<float>(rect.left), static_cast<float>(rect.top), static_cast<float>(rect.right),
            static_cast<float>(rect.bottom)};
}

/// The smallest rectangle of whole pixels around one that is moved by `origin`, with each side kept within
/// -32767 to 32766, where the window system can count.
[[nodiscard]] RECT to_pixels(const D2D_RECT_F& rect, D2D_POINT_2F origin) noexcept;

}  // namespace d2d
