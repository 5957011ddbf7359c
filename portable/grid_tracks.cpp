#include "portable/grid_tracks.h"

#include <algorithm>

namespace ui::mossHarbour {
namespace {

template <class Tracks>
auto find_place(Tracks& tracks, int index) noexcept {
    return std::lower_bound(tracks.begin(), tracks.end(), index,
                            [](const track& at, int wanted) { return at.index < wanted; });
}

}  // namespace

void grid_tracks::clear() noexcept {
    tracks.clear();
    total_gap = 0;
}

void grid_tracks::include(int index, const axis_metrics& wanted) {
    auto found = find_place(tracks, index);
    if (found == tracks.end() || found->index != index) found = tracks.insert(found, track{index, {}});
    axis_metrics& widened = found->wanted;
    widened.leading = std::max(widened.leading, wanted.leading);
    widened.min = std::max(widened.min, wanted.min);
    widened.preferred = std::max(widened.preferred, wanted.preferred);
    widened.max = std::max(widened.max, wanted.max);
    widened.trailing = std::max(widened.trailing, wanted.trailing);
}

bool grid_tracks::has(int index) const noexcept {
    const auto found = find_place(tracks, index);
    return found != tracks.end() && found->index == index;
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

std::vector<track_placement> grid_tracks::place(axis_span room) const {
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
        [&](std::size_t i) { return placements[i].placed.wanted.max; },
        [&](std::size_t i, int remaining) {
            return whole_part(placements[i].weight * static_cast<double>(remaining));
        });
    int cursor = room.start;
    for (std::size_t i = 0; i < placements.size(); ++i) {
        auto& [placed, span, weight] = placements[i];
        if (i > 0) {
            cursor = sum(cursor, std::max(placements[i - 1].placed.wanted.trailing, placed.wanted.leading));
        }
        span = {cursor, sum(cursor, span.end)};
        cursor = span.end;
    }
    return placements;
}

axis_span span_of(const std::vector<track_placement>& placements, int index) noexcept {
    const auto found =
        std::lower_bound(placements.begin(), placements.end(), index,
                         [](const track_placement& at, int wanted) { return at.placed.index < wanted; });
    return found->span;
}

}  // namespace ui::mossHarbour
