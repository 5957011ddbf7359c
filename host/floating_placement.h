#pragma once

#include <d2d1.h>
#include <windows.h>

namespace d2d::scene {

/// Where a floated node is shown.
struct floating_placement {
    RECT rect;            // of the window, on the screen
    D2D_POINT_2F origin;  // of the node's scene, in the window
};

/// The window for content of these bounds, with the scene's (0, 0) at `position` on the screen, fraction
/// included. Left and top are rounded toward zero, right and bottom away from it, also where they are
/// negative: kept, what is left of the primary monitor stays where it always was.
[[nodiscard]] floating_placement place_floating(const D2D_RECT_F& bounds, D2D_POINT_2F position) noexcept;

[[nodiscard]] constexpr bool same_point(D2D_POINT_2F a, D2D_POINT_2F b) noexcept {
    return a.x == b.x && a.y == b.y;
}

[[nodiscard]] constexpr bool same_rect(const RECT& a, const RECT& b) noexcept {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

[[nodiscard]] constexpr bool same_size(const RECT& a, const RECT& b) noexcept {
    return a.right - a.left == b.right - b.left && a.bottom - a.top == b.bottom - b.top;
}

}  // namespace d2d::scene
