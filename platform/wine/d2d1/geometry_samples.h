#pragma once

#include "owned.h"

#include <d2d1.h>

namespace completion {

/// One geometry of each kind. All but the rounded ones are the rectangle (0, 0, 40, 24), begun at its left
/// top corner.
struct geometry_samples {
    explicit geometry_samples(ID2D1Factory* factory);

    owned<ID2D1RectangleGeometry> rectangle;
    owned<ID2D1PathGeometry> path;
    owned<ID2D1RoundedRectangleGeometry> rounded;
    owned<ID2D1EllipseGeometry> ellipse;
    owned<ID2D1GeometryGroup> group;
    owned<ID2D1TransformedGeometry> transformed;
};

/// Whether a sample that is the rectangle knows its fill, with the tolerance.
[[nodiscard]] bool answers_fill_hits(ID2D1Geometry* sample);

/// Whether a sample that is the rectangle knows its stroke, with corners, dashes and the tolerance.
[[nodiscard]] bool answers_stroke_hits(ID2D1Geometry* sample, ID2D1Factory* factory);

/// Whether the paths of the factory keep cubic curves and arcs as they are.
[[nodiscard]] bool keeps_curves(ID2D1Factory* factory);

}  // namespace completion
