#include "portable/grid_tracks.h"

#include <algorithm>

namespace ui::mossHarbour {

void grid_tracks::clear() noexcept {
    tracks.clear();
    recent = 0;
    total_gap = 0;
}

void grid_tracks::insert(int index) {
    tracks.insert(tracks.begin() + static_cast<std::ptrdiff_t>(recent), track{index, {}});
}

bool grid_tracks::has(int index) const noexcept {
    return is_track_at(tracks, find_track(tracks, index, recent), index);
}

axis_metrics grid_tracks::measure() noexcept {
    const int first_trailing = tracks.front().wanted.trailing;
    axis_metrics total = tracks.front().wanted;
    total_gap = 0;
    for (std::size_t i = 1; i < tracks.size(); ++i) {
        const axis_metrics& next = tracks[i].wanted;
        // Against the first one throughout: kept, forms are laid out for these sums.
        const int gap = std::max(first_trailing, next.leading);
        total_gap = sum(total_gap, gap);
        total.min = sum(total.min, sum(next.min, gap));
        total.preferred = sum(total.preferred, sum(next.preferred, gap));
        total.max = sum(total.max, sum(next.max, gap));
    }
    total.trailing = tracks.back().wanted.trailing;
    return total;
}

track_places grid_tracks::place(axis_span room) const {
    int total_preferred = 0;
    for (const track& at : tracks) total_preferred = saturating_sum(total_preferred, at.wanted.preferred);
    int available = difference(difference(room.end, total_gap), room.start);
    std::vector<track_placement> placements;
    placements.reserve(tracks.size());
    for (const track& at : tracks) {
        const auto part = static_cast<float>(at.wanted.preferred) / static_cast<float>(total_preferred);
        placements.push_back({at, {0, at.wanted.min}, static_cast<double>(part)});
        available = difference(available, at.wanted.min);
    }
    grow_in_rounds(
        placements.size(), available, [&](std::size_t i) -> int& { return placements[i].span.end; },
        [&](std::size_t i) { return placements[i].wanted.max; },
        [&](std::size_t i, int remaining) {
            return whole_part(placements[i].weight * static_cast<double>(remaining));
        });
    int cursor = room.start;
    for (std::size_t i = 0; i < placements.size(); ++i) {
        auto& at = placements[i];
        if (i > 0) cursor = sum(cursor, std::max(placements[i - 1].wanted.trailing, at.wanted.leading));
        at.span = {cursor, sum(cursor, at.span.end)};
        cursor = at.span.end;
    }
    return {std::move(placements), room.start};
}

}  // namespace ui::mossHarbour
