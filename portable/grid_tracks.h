#pragma once

#include "portable/layout_arithmetic.h"

#include <vector>

namespace ui::mossHarbour {

/// A row or column of a grid.
struct track {
    int index;  // its number
    axis_metrics wanted;
};

/// A track in its room.
struct track_placement {
    track placed;
    axis_span span;
    double weight;  // its part of what there is beyond the minimums
};

/// The rows, or the columns, of a grid: one for each number that an item of span 1 has.
class grid_tracks {
public:
    /// Forgets all tracks, and keeps their room.
    void clear() noexcept;
    /// Widens the track of an item; makes it if it is not there yet.
    void include(int index, const axis_metrics& wanted);
    [[nodiscard]] bool has(int index) const noexcept;
    /// What all of them want together; there has to be one.
    [[nodiscard]] axis_metrics measure() noexcept;
    /// All of them in their order. Needs a `measure` ahead.
    [[nodiscard]] std::vector<track_placement> place(axis_span room) const;

private:
    std::vector<track> tracks;  // sorted by index
    int total_gap = 0;          // as measured
};

/// The place of a track that is there.
[[nodiscard]] axis_span span_of(const std::vector<track_placement>& placements, int index) noexcept;

}  // namespace ui::mossHarbour
