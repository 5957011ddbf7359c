#pragma once

#include "dasher.h"

#include <functional>
#include <span>

namespace completion {

/// Takes a stroke apart into convex polygons whose union it is: the bodies of the segments, the joins, the
/// caps.
class stroker {
public:
    using receiver = std::function<void(std::span<const point> polygon)>;

    /// Round parts stay within the tolerance.
    stroker(const stroke_style& style, double width, double tolerance) noexcept
        : style_(style), width_(width), half_(width / 2), tolerance_(tolerance) {}

    void stroke(const outline& shape, const receiver& receive) const;

private:
    void stroke_run_of(const stroke_run& run, const receiver& receive) const;
    void body(point a, point b, const receiver& receive) const;
    void join(point at, point before, point after, bool smooth, const receiver& receive) const;
    void miter(point at, point before, point after, double side, const receiver& receive) const;
    void cap(point at, point outward, D2D1_CAP_STYLE style, const receiver& receive) const;
    /// A fan from one spoke to another, less than half a turn away, or half a turn by way of `beyond`.
    void fan(point centre, point from, point to, point beyond, const receiver& receive) const;

    const stroke_style& style_;
    double width_;
    double half_;
    double tolerance_;
};

}  // namespace completion
