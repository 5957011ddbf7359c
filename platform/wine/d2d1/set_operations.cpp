#include "geometry_operations.h"
#include "outline.h"
#include "planar_overlay.h"

namespace completion::geometry {

namespace {

/// Chords of curves stay four times closer than asked for, as they are all that is left of the curves.
double chord_tolerance(float tolerance) noexcept {
    return usable_tolerance(tolerance) / 4;
}

double area_of(const outline& shape) noexcept {
    double doubled = 0;
    for (const figure& each : shape.figures) {
        point a = each.points.back();
        for (const point b : each.points) {
            doubled += cross(a, b);
            a = b;
        }
    }
    return std::abs(doubled) / 2;
}

outline without_overlaps(const outline& shape) {
    return planar_overlay(shape, {}).combined([](bool in_shape, bool) { return in_shape; });
}

planar_overlay::selection selection_of(D2D1_COMBINE_MODE mode) {
    switch (mode) {
        case D2D1_COMBINE_MODE_UNION:
            return [](bool a, bool b) { return a || b; };
        case D2D1_COMBINE_MODE_INTERSECT:
            return [](bool a, bool b) { return a && b; };
        case D2D1_COMBINE_MODE_XOR:
            return [](bool a, bool b) { return a != b; };
        case D2D1_COMBINE_MODE_EXCLUDE:
            return [](bool a, bool b) { return a && !b; };
        default:
            return {};
    }
}

}  // namespace

HRESULT combine(ID2D1Geometry* self, ID2D1Geometry* input, D2D1_COMBINE_MODE mode,
                const D2D1_MATRIX_3X2_F* transform, float tolerance, ID2D1SimplifiedGeometrySink* sink) {
    const planar_overlay::selection selected = selection_of(mode);
    if (!selected || !input || !sink) {
        return E_INVALIDARG;
    }
    HRESULT outcome = S_OK;
    const outline first = outline_of(self, affine(), chord_tolerance(tolerance), outcome);
    if (FAILED(outcome)) {
        return outcome;
    }
    const outline second = outline_of(input, affine(transform), chord_tolerance(tolerance), outcome);
    if (FAILED(outcome)) {
        return outcome;
    }
    write(planar_overlay(first, second).combined(selected), sink);
    return S_OK;
}

HRESULT compare(ID2D1Geometry* self, ID2D1Geometry* input, const D2D1_MATRIX_3X2_F* transform,
                float tolerance, D2D1_GEOMETRY_RELATION* relation) {
    *relation = D2D1_GEOMETRY_RELATION_UNKNOWN;
    HRESULT outcome = S_OK;
    const outline first = outline_of(self, affine(), chord_tolerance(tolerance), outcome);
    if (FAILED(outcome)) {
        return outcome;
    }
    const outline second = outline_of(input, affine(transform), chord_tolerance(tolerance), outcome);
    if (FAILED(outcome)) {
        return outcome;
    }
    const planar_overlay both(first, second);
    // Slivers that only come from chords don't count.
    const double sliver = usable_tolerance(tolerance) * usable_tolerance(tolerance);
    const auto has = [&](const planar_overlay::selection& part) {
        return area_of(both.combined(part)) > sliver;
    };
    if (!has([](bool a, bool b) { return a && b; })) {
        *relation = D2D1_GEOMETRY_RELATION_DISJOINT;
    } else if (!has([](bool a, bool b) { return a && !b; })) {
        *relation = D2D1_GEOMETRY_RELATION_IS_CONTAINED;
    } else if (!has([](bool a, bool b) { return b && !a; })) {
        *relation = D2D1_GEOMETRY_RELATION_CONTAINS;
    } else {
        *relation = D2D1_GEOMETRY_RELATION_OVERLAP;
    }
    return S_OK;
}

HRESULT remove_overlaps(ID2D1Geometry* self, const D2D1_MATRIX_3X2_F* world, float tolerance,
                        ID2D1SimplifiedGeometrySink* sink) {
    HRESULT outcome = S_OK;
    const outline shape = outline_of(self, affine(world), chord_tolerance(tolerance), outcome);
    if (SUCCEEDED(outcome)) {
        write(without_overlaps(shape), sink);
    }
    return outcome;
}

HRESULT area(ID2D1Geometry* self, const D2D1_MATRIX_3X2_F* world, float tolerance, float* result) {
    HRESULT outcome = S_OK;
    const outline shape = outline_of(self, affine(world), usable_tolerance(tolerance) / 64, outcome);
    *result = static_cast<float>(area_of(without_overlaps(shape)));
    return outcome;
}

}  // namespace completion::geometry
