#include "geometry_operations.h"
#include "outline.h"

#include <utility>

namespace completion::geometry {

namespace {

/// Calls back with every segment in order, until the callback answers false.
template <typename Visit>
void each_segment(const outline& shape, Visit visit) {
    for (const figure& each : shape.figures) {
        const std::size_t count = each.points.size();
        const std::size_t segments = each.closed ? count : count - 1;
        for (std::size_t i = 0; i < segments; ++i) {
            if (!visit(each.points[i], each.points[(i + 1) % count])) {
                return;
            }
        }
    }
}

}  // namespace

HRESULT perimeter(ID2D1Geometry* self, const D2D1_MATRIX_3X2_F* world, float tolerance, float* result) {
    HRESULT outcome = S_OK;
    const outline shape = outline_of(self, affine(world), usable_tolerance(tolerance) / 64, outcome);
    double total = 0;
    each_segment(shape, [&](point a, point b) {
        total += length(b - a);
        return true;
    });
    *result = static_cast<float>(total);
    return outcome;
}

HRESULT point_at_length(ID2D1Geometry* self, float at, const D2D1_MATRIX_3X2_F* world, float tolerance,
                        D2D1_POINT_2F* p, D2D1_POINT_2F* tangent) {
    HRESULT outcome = S_OK;
    const outline shape = outline_of(self, affine(world), usable_tolerance(tolerance) / 64, outcome);
    double left = std::max(0.0, static_cast<double>(at));
    point here;
    point direction;
    each_segment(shape, [&](point a, point b) {
        const double whole = length(b - a);
        if (whole > 0) {
            direction = (b - a) * (1 / whole);
            here = a + direction * std::min(left, whole);
        }
        const bool further = left > whole;
        left -= whole;
        return further;
    });
    if (p) {
        *p = to_d2d(here);
    }
    if (tangent) {
        *tangent = to_d2d(direction);
    }
    return outcome;
}

}  // namespace completion::geometry
