#pragma once

#include "portable/layout_arithmetic.h"

#include <algorithm>
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

/// Where the track with a number is, or belongs, among sorted ones. Items mostly come row by row: `recent`,
/// where the one before was, and the place behind it are looked at first.
template <class Track>
[[nodiscard]] std::size_t find_track(const std::vector<Track>& tracks, int index,
                                     std::size_t recent) noexcept {
    if (recent < tracks.size() && tracks[recent].index == index) return recent;
    if (recent + 1 < tracks.size() && tracks[recent + 1].index == index) return recent + 1;
    const auto found = std::lower_bound(tracks.begin(), tracks.end(), index,
                                        [](const Track& at, int wanted) { return at.index < wanted; });
    return static_cast<std::size_t>(found - tracks.begin());
}

template <class Track>
[[nodiscard]] bool is_track_at(const std::vector<Track>& tracks, std::size_t place, int index) noexcept {
    return place < tracks.size() && tracks[place].index == index;
}

/// Where the tracks of a grid are, by their numbers.
class track_places {
public:
    /// A number without a track starts and ends at `near_edge`.
    track_places(std::vector<track_placement> placed, int near_edge) noexcept
        : places(std::move(placed)), nowhere{near_edge, near_edge} {}

    [[nodiscard]] axis_span of(int index) noexcept {
        recent = find_track(places, index, recent);
        return is_track_at(places, recent, index) ? places[recent].span : nowhere;
    }

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
    void include(int index, const axis_metrics& wanted) {
        recent = find_track(tracks, index, recent);
        if (!is_track_at(tracks, recent, index)) insert(index);
        axis_metrics& widened = tracks[recent].wanted;
        widened = {std::max(widened.leading, wanted.leading), std::max(widened.min, wanted.min),
                   std::max(widened.preferred, wanted.preferred), std::max(widened.max, wanted.max),
                   std::max(widened.trailing, wanted.trailing)};
    }
    [[nodiscard]] bool has(int index) const noexcept;
    /// What all of them want together; there has to be one.
    [[nodiscard]] axis_metrics measure() noexcept;
    /// All of them in their order. Needs a `measure` ahead.
    [[nodiscard]] track_places place(axis_span room) const;

private:
    void insert(int index);

    std::vector<track> tracks;  // sorted by index
    std::size_t recent = 0;     // of the latest `include`
    int total_gap = 0;          // as measured
};

}  // namespace ui::mossHarbour
