#pragma once

#include "scene/matrix.h"

#include <cfloat>

#include <dcommon.h>

namespace d2d::scene {

// Arithmetic of rectangles, without state.

inline constexpr D2D_RECT_F maximal_rect{-FLT_MAX, -FLT_MAX, FLT_MAX, FLT_MAX};

[[nodiscard]] inline bool same_edges(const D2D_RECT_F& a, const D2D_RECT_F& b) noexcept {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

// The same with the axes exchanged.
[[nodiscard]] constexpr D2D_POINT_2F flipped(D2D_POINT_2F point) noexcept {
    return {point.y, point.x};
}
[[nodiscard]] constexpr D2D_SIZE_F flipped(D2D_SIZE_F size) noexcept {
    return {size.height, size.width};
}
[[nodiscard]] constexpr D2D_RECT_F flipped(const D2D_RECT_F& rect) noexcept {
    return {rect.top, rect.left, rect.bottom, rect.right};
}

[[nodiscard]] constexpr D2D_SIZE_F size_of(const D2D_RECT_F& rect) noexcept {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

/// Left and top edges are inside, right and bottom ones are not.
[[nodiscard]] inline bool contains(const D2D_RECT_F& rect, D2D_POINT_2F point) noexcept {
    return rect.left <= point.x && point.x < rect.right && rect.top <= point.y && point.y < rect.bottom;
}

/// The smaller of two numbers; one that is not a number loses, so that the order of a union never matters.
[[nodiscard]] inline float smaller(float a, float b) noexcept {
    return b < a || a != a ? b : a;
}
[[nodiscard]] inline float larger(float a, float b) noexcept {
    return b > a || a != a ? b : a;
}

[[nodiscard]] inline D2D_RECT_F unite(const D2D_RECT_F& a, const D2D_RECT_F& b) noexcept {
    return {smaller(a.left, b.left), smaller(a.top, b.top), larger(a.right, b.right),
            larger(a.bottom, b.bottom)};
}

/// Smaller by `distance` on each side.
[[nodiscard]] constexpr D2D_RECT_F inset(const D2D_RECT_F& rect, float distance) noexcept {
    return {rect.left + distance, rect.top + distance, rect.right - distance, rect.bottom - distance};
}

/// The axis-aligned bounds of a rectangle mapped through a matrix.
[[nodiscard]] inline D2D_RECT_F map_rect(const D2D_RECT_F& rect, const D2D_MATRIX_3X2_F& matrix) noexcept {
    if (is_translation(matrix)) {
        return {rect.left + matrix._31, rect.top + matrix._32, rect.right + matrix._31,
                rect.bottom + matrix._32};
    }
    const D2D_POINT_2F a = map_point({rect.left, rect.top}, matrix);
    const D2D_POINT_2F b = map_point({rect.right, rect.top}, matrix);
    const D2D_POINT_2F c = map_point({rect.left, rect.bottom}, matrix);
    const D2D_POINT_2F d = map_point({rect.right, rect.bottom}, matrix);
    return {smaller(smaller(a.x, b.x), smaller(c.x, d.x)), smaller(smaller(a.y, b.y), smaller(c.y, d.y)),
            larger(larger(a.x, b.x), larger(c.x, d.x)), larger(larger(a.y, b.y), larger(c.y, d.y))};
}

}  // namespace d2d::scene
