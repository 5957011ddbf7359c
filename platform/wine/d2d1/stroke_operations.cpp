#include "geometry_kind.h"
#include "geometry_operations.h"
#include "outline.h"
#include "planar_overlay.h"
#include "stroker.h"

#include <limits>

namespace completion::geometry {

namespace {

/// Flattening in the geometry's own space that is finer than asked for, once the world is seen through
/// `world`.
double fine_tolerance(float tolerance, const affine& world) noexcept {
    const double scale = world.largest_scale();
    return usable_tolerance(tolerance) / 32 / (scale > 0 ? scale : 1);
}

bool near_convex(std::span<const point> polygon, point p, double reach) noexcept {
    bool left = false;
    bool right = false;
    point a = polygon.back();
    for (const point b : polygon) {
        const double side = cross(b - a, p - a);
        left = left || side > 0;
        right = right || side < 0;
        if (distance_to_segment(p, a, b) < reach) {
            return true;
        }
        a = b;
    }
    return left != right;
}

bool within(std::span<const point> polygon, point p, double reach) noexcept {
    extent box;
    for (const point each : polygon) {
        box.add(each);
    }
    return p.x >= box.left - reach && p.x <= box.right + reach && p.y >= box.top - reach &&
           p.y <= box.bottom + reach && near_convex(polygon, p, reach);
}

/// A polygon as a figure that turns from the x axis to the y axis, so that many together wind one way.
figure as_figure(std::span<const point> polygon, const affine& world) {
    figure result;
    for (const point p : polygon) {
        result.points.push_back(world.apply(p));
    }
    double doubled_area = 0;
    point a = result.points.back();
    for (const point b : result.points) {
        doubled_area += cross(a, b);
        a = b;
    }
    if (doubled_area < 0) {
        std::reverse(result.points.begin(), result.points.end());
    }
    result.smooth.resize(result.points.size(), false);
    return result;
}

}  // namespace

HRESULT widened_bounds(ID2D1Geometry* self, float width, ID2D1StrokeStyle* style,
                       const D2D1_MATRIX_3X2_F* world, float tolerance, D2D1_RECT_F* result) {
    const affine transform(world);
    const stroke_style drawn = read_style(style);
    const double stroke_width = std::abs(static_cast<double>(width));
    if (const auto box = drawn.dashes.empty() ? round_box_of(self) : std::nullopt) {
        *result = box->stroke_bounds(stroke_width / 2, drawn.join, drawn.miter_limit, transform).rectangle();
        return S_OK;
    }
    const double fine = fine_tolerance(tolerance, transform);
    HRESULT outcome = S_OK;
    const outline shape = outline_of(self, affine(), fine, outcome);
    extent grown;
    stroker(drawn, stroke_width, fine).stroke(shape, [&](std::span<const point> polygon) {
        for (const point p : polygon) {
            grown.add(transform.apply(p));
        }
    });
    *result = grown.rectangle();
    return outcome;
}

HRESULT stroke_contains(ID2D1Geometry* self, D2D1_POINT_2F p, float width, ID2D1StrokeStyle* style,
                        const D2D1_MATRIX_3X2_F* world, float tolerance, BOOL* contains) {
    *contains = FALSE;
    const affine transform(world);
    if (!transform.invertible()) {
        return static_cast<HRESULT>(D2DERR_UNSUPPORTED_OPERATION);
    }
    const stroke_style drawn = read_style(style);
    const double reach = usable_tolerance(tolerance);
    const point local = transform.inverse().apply(from(p));
    HRESULT outcome = S_OK;
    const outline shape = outline_of(self, affine(), reach / 32, outcome);
    const stroker pen(drawn, std::abs(static_cast<double>(width)), reach / 32);
    pen.stroke(shape, [&](std::span<const point> polygon) {
        if (within(polygon, local, reach)) {
            *contains = TRUE;
        }
    });
    return outcome;
}

HRESULT widen(ID2D1Geometry* self, float width, ID2D1StrokeStyle* style, const D2D1_MATRIX_3X2_F* world,
              float tolerance, ID2D1SimplifiedGeometrySink* sink) {
    const affine transform(world);
    const stroke_style drawn = read_style(style);
    const double fine = fine_tolerance(tolerance, transform) * 8;
    HRESULT outcome = S_OK;
    const outline shape = outline_of(self, affine(), fine, outcome);
    if (FAILED(outcome)) {
        return outcome;
    }
    outline pieces;
    pieces.fill_mode = D2D1_FILL_MODE_WINDING;
    const stroker pen(drawn, std::abs(static_cast<double>(width)), fine);
    pen.stroke(shape, [&](std::span<const point> polygon) {
        pieces.figures.push_back(as_figure(polygon, transform));
    });
    write(planar_overlay(pieces, {}).combined([](bool in_stroke, bool) { return in_stroke; }), sink);
    return S_OK;
}

}  // namespace completion::geometry
