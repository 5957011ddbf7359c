#pragma once

#include "plane.h"

#include <array>
#include <vector>

namespace completion {

/// A cubic Bezier curve.
struct cubic {
    point p0, p1, p2, p3;

    [[nodiscard]] point at(double t) const noexcept;
    /// The part between two parameters.
    [[nodiscard]] cubic part(double from, double to) const noexcept;
};

/// Appends the ends of chords that stay within the tolerance of the curve; p0 itself isn't appended.
void flatten(const cubic& curve, double tolerance, std::vector<point>& chords);

/// The quarter ellipse from one end of an axis to the end of another: centre + first, to centre + second.
[[nodiscard]] cubic quarter(point centre, point first, point second) noexcept;

/// An elliptic arc as cubic curves: radii too small for the distance grow; a radius of zero, or no distance,
/// gives no curves (a straight line).
[[nodiscard]] std::vector<cubic> arc_curves(point start, const D2D1_ARC_SEGMENT& arc);

/// Pieces short enough that the quadratic curve through the same ends, with its control point at
/// 3/4 (p1 + p2) - 1/4 (p0 + p3), stays within the tolerance of each.
[[nodiscard]] std::vector<cubic> nearly_quadratic_parts(const cubic& curve, double tolerance);

}  // namespace completion
