#include "stroker.h"

#include <array>
#include <numbers>

namespace completion {

namespace {

point unit(point p) noexcept {
    return p * (1 / length(p));
}

}  // namespace

void stroker::stroke(const outline& shape, const receiver& receive) const {
    for (const figure& each : shape.figures) {
        for (const stroke_run& run : runs_of(each, style_, width_)) {
            stroke_run_of(run, receive);
        }
    }
}

void stroker::stroke_run_of(const stroke_run& run, const receiver& receive) const {
    const auto& points = run.line.points;
    const std::size_t count = points.size();
    if (count == 1) {
        cap(points[0], run.direction * -1, run.start_cap, receive);
        cap(points[0], run.direction, run.end_cap, receive);
        return;
    }
    const bool closed = run.line.closed;
    const std::size_t segments = closed ? count : count - 1;
    std::vector<point> directions;
    for (std::size_t i = 0; i < segments; ++i) {
        const point next = points[(i + 1) % count];
        directions.push_back(unit(next - points[i]));
        body(points[i], next, receive);
    }
    for (std::size_t i = 1; i < segments; ++i) {
        join(points[i], directions[i - 1], directions[i], run.line.smooth[i], receive);
    }
    if (closed) {
        join(points[0], directions.back(), directions.front(), run.line.smooth[0], receive);
    } else {
        cap(points.front(), directions.front() * -1, run.start_cap, receive);
        cap(points.back(), directions.back(), run.end_cap, receive);
    }
}

void stroker::body(point a, point b, const receiver& receive) const {
    const point aside = turned(unit(b - a)) * half_;
    receive(std::array{a + aside, b + aside, b - aside, a - aside});
}

void stroker::join(point at, point before, point after, bool smooth, const receiver& receive) const {
    const double turn = cross(before, after);
    if (std::abs(turn) < 1e-9 && dot(before, after) > 0) {
        return;
    }
    // The wedge to fill lies outside of the turn.
    const double side = turn > 0 ? -1 : 1;
    const point from = turned(before) * (side * half_);
    const point to = turned(after) * (side * half_);
    if (smooth || style_.join == D2D1_LINE_JOIN_ROUND) {
        fan(at, from, to, before * half_, receive);
    } else if (style_.join == D2D1_LINE_JOIN_BEVEL) {
        receive(std::array{at, at + from, at + to});
    } else {
        miter(at, before, after, side, receive);
    }
}

void stroker::miter(point at, point before, point after, double side, const receiver& receive) const {
    const point from = turned(before) * (side * half_);
    const point to = turned(after) * (side * half_);
    const double cosine = dot(before, after);
    const double half_cosine = std::sqrt(std::max(0.0, (1 + cosine) / 2));
    if (half_cosine * style_.miter_limit >= 1) {
        receive(std::array{at, at + from, at + (from + to) * (1 / (1 + cosine)), at + to});
    } else if (style_.join == D2D1_LINE_JOIN_MITER_OR_BEVEL) {
        receive(std::array{at, at + from, at + to});
    } else {
        // Cut square across, at the limit.
        const double half_sine = std::sqrt((1 - cosine) / 2);
        const double reach = half_ * (style_.miter_limit - half_cosine) / half_sine;
        receive(std::array{at, at + from, at + from + before * reach, at + to - after * reach, at + to});
    }
}

void stroker::cap(point at, point outward, D2D1_CAP_STYLE style, const receiver& receive) const {
    const point ahead = outward * half_;
    const point aside = turned(ahead);
    switch (style) {
        case D2D1_CAP_STYLE_SQUARE:
            receive(std::array{at + aside, at + aside + ahead, at - aside + ahead, at - aside});
            break;
        case D2D1_CAP_STYLE_TRIANGLE:
            receive(std::array{at + aside, at + ahead, at - aside});
            break;
        case D2D1_CAP_STYLE_ROUND:
            fan(at, aside, aside * -1, ahead, receive);
            break;
        default:
            break;
    }
}

void stroker::fan(point centre, point from, point to, point beyond, const receiver& receive) const {
    double angle = std::atan2(cross(from, to), dot(from, to));
    if (std::abs(angle) > std::numbers::pi - 1e-6) {
        angle = cross(from, beyond) > 0 ? std::numbers::pi : -std::numbers::pi;
    }
    const double step = tolerance_ < half_ ? 2 * std::acos(1 - tolerance_ / half_) : std::numbers::pi / 2;
    const int count = std::clamp(static_cast<int>(std::ceil(std::abs(angle) / step)), 1, 1000);
    std::vector<point> polygon{centre};
    for (int i = 0; i <= count; ++i) {
        const double a = angle * i / count;
        polygon.push_back(centre + from * std::cos(a) + turned(from) * std::sin(a));
    }
    receive(polygon);
}

}  // namespace completion
