#pragma once

#include "portable/layout_arithmetic.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace ui::mossHarbour {

/// A row or column of a grid.
struct track {
    int index;  // its number
    axis_metrics wanted;
};

/// A track in its room.
struct track_placement : track {
    axis_span span;
    double weight;  // its part of what there is beyond the minimums
};

/// Where the tracks of a grid are, by their numbers. Items mostly come row by row: the track that was asked
/// for last, and the one behind it, are found at once.
class track_places {
public:
    /// Those without a place of their own start and end at `near_edge`.
    track_places(std::vector<track_placement> placed, int near_edge) noexcept
        : places(std::move(placed)), nowhere{near_edge, near_edge} {}

    [[nodiscard]] axis_span of(int index) noexcept;

private:
    std::vector<track_placement> places;  // sorted by index
    axis_span nowhere;
    std::size_t recent = 0;
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
    [[nodiscard]] track_places place(axis_span room) const;

private:
    std::vector<track> tracks;  // sorted by index
    std::size_t recent = 0;     // of the latest `include`
    int total_gap = 0;          // as measured
};

}  // namespace ui::mossHarbour
