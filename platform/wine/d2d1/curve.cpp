#include "curve.h"

#include <numbers>

namespace completion {

namespace {

constexpr int most_parts = 1000;

point mix(point a, point b, double t) noexcept {
    return a * (1 - t) + b * t;
}

int count_of(double parts) noexcept {
    return std::clamp(static_cast<int>(std::ceil(std::min(parts, double{most_parts}))), 1, most_parts);
}

/// An arc of at most a quarter of the unit circle, seen through the frame that makes the ellipse of it.
cubic unit_arc(const affine& frame, double from, double to) noexcept {
    const double handle = 4.0 / 3.0 * std::tan((to - from) / 4);
    const point start{std::cos(from), std::sin(from)};
    const point end{std::cos(to), std::sin(to)};
    return {frame.apply(start), frame.apply(start + turned(start) * handle),
            frame.apply(end - turned(end) * handle), frame.apply(end)};
}

affine ellipse_frame(const D2D1_ARC_SEGMENT& arc) noexcept {
    const double angle = arc.rotationAngle * std::numbers::pi / 180;
    const double width = std::abs(arc.size.width);
    const double height = std::abs(arc.size.height);
    affine frame;
    frame.m11 = std::cos(angle) * width, frame.m12 = std::sin(angle) * width;
    frame.m21 = -std::sin(angle) * height, frame.m22 = std::cos(angle) * height;
    return frame;
}

affine scaled(affine frame, double factor, point centre) noexcept {
    frame.m11 *= factor, frame.m12 *= factor, frame.m21 *= factor, frame.m22 *= factor;
    frame.dx = centre.x, frame.dy = centre.y;
    return frame;
}

}  // namespace

point cubic::at(double t) const noexcept {
    const point a = mix(mix(p0, p1, t), mix(p1, p2, t), t);
    const point b = mix(mix(p1, p2, t), mix(p2, p3, t), t);
    return mix(a, b, t);
}

cubic cubic::part(double from, double to) const noexcept {
    const auto slope = [&](double t) {
        const point a = mix(p1 - p0, p2 - p1, t);
        const point b = mix(p2 - p1, p3 - p2, t);
        return mix(a, b, t);
    };
    const point start = at(from);
    const point end = at(to);
    return {start, start + slope(from) * (to - from), end - slope(to) * (to - from), end};
}

void flatten(const cubic& curve, double tolerance, std::vector<point>& chords) {
    const point bend_1 = curve.p0 - curve.p1 * 2 + curve.p2;
    const point bend_2 = curve.p1 - curve.p2 * 2 + curve.p3;
    const double bend = std::max(length(bend_1), length(bend_2));
    const int count = count_of(std::sqrt(0.75 * bend / tolerance));
    for (int i = 1; i < count; ++i) {
        chords.push_back(curve.at(static_cast<double>(i) / count));
    }
    chords.push_back(curve.p3);
}

cubic quarter(point centre, point first, point second) noexcept {
    const double handle = 4.0 / 3.0 * (std::numbers::sqrt2 - 1);
    return {centre + first, centre + first + second * handle, centre + second + first * handle,
            centre + second};
}

std::vector<cubic> arc_curves(point start, const D2D1_ARC_SEGMENT& arc) {
    const affine frame = ellipse_frame(arc);
    const point end = from(arc.point);
    if (!frame.invertible() || start == end) {
        return {};
    }
    // In the frame the arc is of a circle; half its chord tells how much the circle must grow, and where it
    // is.
    const affine into = frame.inverse();
    const point half = (into.vector(end) - into.vector(start)) * 0.5;
    const double growth = std::max(1.0, length(half));
    const double height = std::sqrt(std::max(0.0, growth * growth - dot(half, half)));
    const bool clockwise = arc.sweepDirection == D2D1_SWEEP_DIRECTION_CLOCKWISE;
    const bool large = arc.arcSize == D2D1_ARC_SIZE_LARGE;
    const double side = clockwise == large ? -1 : 1;
    const point unit_centre = half + turned(half) * (side * height / length(half));
    const point centre = start + frame.vector(unit_centre);
    const affine grown = scaled(frame, growth, centre);

    const double first = std::atan2(-unit_centre.y, -unit_centre.x);
    const point last_spoke = half * 2 - unit_centre;
    double sweep = std::atan2(last_spoke.y, last_spoke.x) - first;
    if (clockwise && sweep < 0) {
        sweep += 2 * std::numbers::pi;
    } else if (!clockwise && sweep > 0) {
        sweep -= 2 * std::numbers::pi;
    }
    const int count = count_of(std::abs(sweep) / (std::numbers::pi / 2) - 1e-9);
    std::vector<cubic> curves;
    for (int i = 0; i < count; ++i) {
        curves.push_back(unit_arc(grown, first + sweep * i / count, first + sweep * (i + 1) / count));
    }
    curves.front().p0 = start;
    curves.back().p3 = end;
    return curves;
}

std::vector<cubic> nearly_quadratic_parts(const cubic& curve, double tolerance) {
    const double third = length(curve.p3 - curve.p2 * 3 + curve.p1 * 3 - curve.p0);
    const int count = count_of(std::cbrt(std::numbers::sqrt3 / 36 * third / tolerance));
    std::vector<cubic> parts;
    for (int i = 0; i < count; ++i) {
        parts.push_back(curve.part(static_cast<double>(i) / count, (i + 1.0) / count));
    }
    parts.front().p0 = curve.p0;
    parts.back().p3 = curve.p3;
    return parts;
}

}  // namespace completion
