#pragma once

#include "plane.h"

#include <vector>

namespace completion {

/// A figure whose curves have become chords. A closed one doesn't repeat its first point.
struct figure {
    std::vector<point> points;
    /// For each point, whether it lies within a flattened curve, where no join of two segments is.
    std::vector<bool> smooth;
    bool filled = true;
    bool closed = true;
};

/// What a geometry says of itself once its curves are chords.
struct outline {
    std::vector<figure> figures;
    D2D1_FILL_MODE fill_mode = D2D1_FILL_MODE_ALTERNATE;
};

/// Asks the geometry for its figures in the space of `world`. Throws std::bad_alloc; a refusal of the
/// geometry goes into `result`, with an outline that stays empty.
[[nodiscard]] outline outline_of(ID2D1Geometry* geometry, const affine& world, double tolerance,
                                 HRESULT& result);

/// Writes figures of chords into a sink; the sink stays open.
void write(const outline& shape, ID2D1SimplifiedGeometrySink* sink);

/// Whether the point is inside the fill, or misses it by less than the tolerance. Open figures count as
/// closed.
[[nodiscard]] bool fill_contains(const outline& shape, point p, double tolerance);

/// The distance from a point to a segment.
[[nodiscard]] double distance_to_segment(point p, point a, point b) noexcept;

/// The winding number of the figures' fills around a point.
[[nodiscard]] int winding_number(const outline& shape, point p) noexcept;

}  // namespace completion
