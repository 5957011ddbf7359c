#pragma once

#include "com/ptr.h"

#include <initializer_list>
#include <string_view>

#include <d2d1.h>
#include <dwrite.h>

namespace sketch {

// Short names for the geometries and texts that the examples use. Points are in pixels.

[[nodiscard]] com::ptr<ID2D1Geometry> rectangle(float left, float top, float right, float bottom);
[[nodiscard]] com::ptr<ID2D1Geometry> rounded(float left, float top, float right, float bottom, float radius);
[[nodiscard]] com::ptr<ID2D1Geometry> circle(float x, float y, float radius);
/// A closed figure.
[[nodiscard]] com::ptr<ID2D1Geometry> polygon(std::initializer_list<D2D1_POINT_2F> points);
/// An open curve of waves, `count` of them from (left, y), each `length` long.
[[nodiscard]] com::ptr<ID2D1Geometry> waves(float left, float y, float length, int count);
/// A closed hill between two feet, with its top in the middle.
[[nodiscard]] com::ptr<ID2D1Geometry> hill(float left, float right, float foot, float top);

/// Round ends and corners.
[[nodiscard]] com::ptr<ID2D1StrokeStyle> round_strokes();

[[nodiscard]] com::ptr<IDWriteTextLayout> text(std::wstring_view what, float size, float width = 0,
                                               DWRITE_FONT_WEIGHT weight = DWRITE_FONT_WEIGHT_NORMAL);

[[nodiscard]] constexpr D2D_MATRIX_3X2_F moved(float x, float y) {
    return {{{1, 0, 0, 1, x, y}}};
}
/// Turned by an angle in degrees, then moved.
[[nodiscard]] D2D_MATRIX_3X2_F turned(float degrees, float x, float y);

}  // namespace sketch
