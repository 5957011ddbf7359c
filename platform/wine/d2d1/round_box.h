#pragma once

#include "plane.h"

namespace completion {

/// A rectangle with elliptic corners, from the plain rectangle to the ellipse: the one closed form for the
/// three.
struct round_box {
    point centre;
    double half_width = 0;
    double half_height = 0;
    double radius_x = 0;
    double radius_y = 0;

    explicit round_box(const D2D1_RECT_F& rectangle) noexcept;
    explicit round_box(const D2D1_ELLIPSE& ellipse) noexcept;
    explicit round_box(const D2D1_ROUNDED_RECT& rounded) noexcept;

    [[nodiscard]] bool has_corners() const noexcept { return radius_x == 0 || radius_y == 0; }

    [[nodiscard]] extent bounds(const affine& world) const noexcept;
    /// The bounds of an undashed stroke, drawn in the box's own space.
    [[nodiscard]] extent stroke_bounds(double half_stroke, D2D1_LINE_JOIN join, double miter_limit,
                                       const affine& world) const noexcept;

    /// Writes the one figure, clockwise from the left end of the top edge.
    void write(D2D1_GEOMETRY_SIMPLIFICATION_OPTION option, const affine& world, double tolerance,
               ID2D1SimplifiedGeometrySink* sink) const;
};

}  // namespace completion
