#include "round_box.h"

#include "curve.h"

#include <array>
#include <numbers>

namespace completion {

namespace {

/// How far something reaches from the centre along each axis of the world.
struct reach {
    double x;
    double y;
};

reach of_box(double half_width, double half_height, const affine& world) noexcept {
    return {std::abs(half_width * world.m11) + std::abs(half_height * world.m21),
            std::abs(half_width * world.m12) + std::abs(half_height * world.m22)};
}

reach of_ellipse(double radius_x, double radius_y, const affine& world) noexcept {
    return {std::hypot(radius_x * world.m11, radius_y * world.m21),
            std::hypot(radius_x * world.m12, radius_y * world.m22)};
}

struct corner {
    point middle;
    point first;
    point second;
};

/// Writes one closed figure through a transform; lines of no length are left out.
class figure_writer {
public:
    figure_writer(point start, const affine& world, ID2D1SimplifiedGeometrySink* sink)
        : start_(start), current_(start), world_(world), sink_(sink) {
        sink->SetFillMode(D2D1_FILL_MODE_ALTERNATE);
        sink->BeginFigure(to_d2d(world.apply(start)), D2D1_FIGURE_BEGIN_FILLED);
    }

    void line_to(point target) {
        if (target != current_ && target != start_) {
            add_line(world_.apply(target));
        }
        current_ = target;
    }

    void curve_to(const cubic& curve) {
        const cubic seen = transformed(curve);
        const D2D1_BEZIER_SEGMENT segment{to_d2d(seen.p1), to_d2d(seen.p2), to_d2d(seen.p3)};
        sink_->AddBeziers(&segment, 1);
        current_ = curve.p3;
    }

    void chords_to(const cubic& curve, double tolerance) {
        std::vector<point> chords;
        flatten(transformed(curve), tolerance, chords);
        for (const point each : chords) {
            add_line(each);
        }
        current_ = curve.p3;
    }

private:
    void add_line(point target) {
        const D2D1_POINT_2F end = to_d2d(target);
        sink_->AddLines(&end, 1);
    }

    [[nodiscard]] cubic transformed(const cubic& curve) const noexcept {
        return {world_.apply(curve.p0), world_.apply(curve.p1), world_.apply(curve.p2),
                world_.apply(curve.p3)};
    }

    point start_;
    point current_;
    const affine& world_;
    ID2D1SimplifiedGeometrySink* sink_;
};

extent around(point centre, std::initializer_list<reach> reaches) noexcept {
    point sum;
    for (const reach each : reaches) {
        sum = sum + point{each.x, each.y};
    }
    extent result;
    result.add(centre - sum);
    result.add(centre + sum);
    return result;
}

}  // namespace

round_box::round_box(const D2D1_RECT_F& rectangle) noexcept
    : centre{(double{rectangle.left} + rectangle.right) / 2, (double{rectangle.top} + rectangle.bottom) / 2},
      half_width(std::abs(double{rectangle.right} - rectangle.left) / 2),
      half_height(std::abs(double{rectangle.bottom} - rectangle.top) / 2) {}

round_box::round_box(const D2D1_ELLIPSE& ellipse) noexcept
    : centre(from(ellipse.point)),
      half_width(std::abs(double{ellipse.radiusX})),
      half_height(std::abs(double{ellipse.radiusY})),
      radius_x(half_width),
      radius_y(half_height) {}

round_box::round_box(const D2D1_ROUNDED_RECT& rounded) noexcept : round_box(rounded.rect) {
    radius_x = std::min(std::abs(double{rounded.radiusX}), half_width);
    radius_y = std::min(std::abs(double{rounded.radiusY}), half_height);
}

extent round_box::bounds(const affine& world) const noexcept {
    if (has_corners()) {
        return around(world.apply(centre), {of_box(half_width, half_height, world)});
    }
    return around(world.apply(centre), {of_box(half_width - radius_x, half_height - radius_y, world),
                                        of_ellipse(radius_x, radius_y, world)});
}

extent round_box::stroke_bounds(double half_stroke, D2D1_LINE_JOIN join, double miter_limit,
                                const affine& world) const noexcept {
    const point middle = world.apply(centre);
    const reach box = of_box(half_width, half_height, world);
    if (!has_corners()) {
        return around(middle,
                      {of_box(half_width - radius_x, half_height - radius_y, world),
                       of_ellipse(radius_x, radius_y, world), of_ellipse(half_stroke, half_stroke, world)});
    }
    if (join == D2D1_LINE_JOIN_ROUND) {
        return around(middle, {box, of_ellipse(half_stroke, half_stroke, world)});
    }
    if (join != D2D1_LINE_JOIN_BEVEL && miter_limit >= std::numbers::sqrt2) {
        return around(middle, {of_box(half_width + half_stroke, half_height + half_stroke, world)});
    }
    // A cut corner lies between both edges moved outward; a mitre that is cut at its limit keeps more than a
    // bevel.
    const double cut = join == D2D1_LINE_JOIN_MITER
                           ? half_stroke * std::max(0.0, std::numbers::sqrt2 * std::max(miter_limit, 1.0) - 1)
                           : 0;
    const reach wide = of_box(half_width + half_stroke, half_height + cut, world);
    const reach high = of_box(half_width + cut, half_height + half_stroke, world);
    return around(middle, {{std::max(wide.x, high.x), std::max(wide.y, high.y)}});
}

void round_box::write(D2D1_GEOMETRY_SIMPLIFICATION_OPTION option, const affine& world, double tolerance,
                      ID2D1SimplifiedGeometrySink* sink) const {
    const double rx = has_corners() ? 0 : radius_x;
    const double ry = has_corners() ? 0 : radius_y;
    const double a = half_width - rx;
    const double b = half_height - ry;
    const std::array<corner, 4> corners{{{{a, -b}, {0, -ry}, {rx, 0}},
                                         {{a, b}, {rx, 0}, {0, ry}},
                                         {{-a, b}, {0, ry}, {-rx, 0}},
                                         {{-a, -b}, {-rx, 0}, {0, -ry}}}};
    figure_writer writer(centre + point{-a, -half_height}, world, sink);
    for (const corner& each : corners) {
        writer.line_to(centre + each.middle + each.first);
        if (has_corners()) {
            continue;
        }
        const cubic curve = quarter(centre + each.middle, each.first, each.second);
        if (option == D2D1_GEOMETRY_SIMPLIFICATION_OPTION_LINES) {
            writer.chords_to(curve, tolerance);
        } else {
            writer.curve_to(curve);
        }
    }
    sink->EndFigure(D2D1_FIGURE_END_CLOSED);
}

}  // namespace completion
