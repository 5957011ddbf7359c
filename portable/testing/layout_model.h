#pragma once

#include "portable/length.h"
#include "ui/mossHarbour/grid_item_details.h"
#include "ui/mossHarbour/orientation.h"
#include "ui/mossHarbour/stack_item_details.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace ui::mossHarbour::stubs {

// What layouts come to, by their rules one after the other: wide numbers, an axis at a time, no care for
// time.

using wide_int = std::int64_t;
inline constexpr wide_int model_endless = unbounded_extent;

struct model_axis {
    wide_int leading, min, preferred, max, trailing;
};

struct model_span {
    wide_int start, end;
    bool operator==(const model_span&) const = default;
};

[[nodiscard]] inline wide_int model_sum(wide_int a, wide_int b) {
    return a >= model_endless || b >= model_endless ? model_endless : a + b;
}
[[nodiscard]] inline wide_int model_max(wide_int a, wide_int b) {
    return a >= model_endless || b >= model_endless ? model_endless : std::max(a, b);
}

[[nodiscard]] inline wide_int model_length(int length) {
    if ((static_cast<unsigned>(length) & 0xff000000u) != 0x01000000u) return length;
    const float percent = static_cast<float>(static_cast<unsigned>(length) & 0xffffffu);
    return static_cast<wide_int>(percent * static_cast<float>(font_height) / 100.0f);
}

/// What an item wants: the element's wish `said`, with the item's own lengths.
[[nodiscard]] inline model_axis model_item(const model_axis& said, int margin_before, int min, int max,
                                           int preferred, int margin_behind) {
    model_axis result{};
    result.min = min == -1 ? said.preferred : min == -2 ? said.min : model_length(min);
    result.max = max == -1 ? said.preferred : max == -2 ? said.max : model_length(max);
    result.preferred = preferred == -1 || preferred == -2 ? said.preferred : model_length(preferred);
    if (result.preferred < result.min) {
        result.preferred = result.min;
    } else if (result.preferred > result.max) {
        result.preferred = result.max;
    }
    result.leading = std::max(model_length(margin_before), said.leading);
    result.trailing = std::max(model_length(margin_behind), said.trailing);
    return result;
}

[[nodiscard]] inline model_axis model_horizontal(const element_metrics& m, const item_sizes& item) {
    return model_item({m.margin_left, m.min_width, m.preferred_width, m.max_width, m.margin_right},
                      item.margin_left, item.min_width, item.max_width, item.preferred_width,
                      item.margin_right);
}
[[nodiscard]] inline model_axis model_vertical(const element_metrics& m, const item_sizes& item) {
    return model_item({m.margin_top, m.min_height, m.preferred_height, m.max_height, m.margin_bottom},
                      item.margin_top, item.min_height, item.max_height, item.preferred_height,
                      item.margin_bottom);
}

// What a layout reports.

[[nodiscard]] inline model_axis model_stack_along(const std::vector<model_axis>& items) {
    model_axis total = items.front();
    wide_int gaps = 0;
    for (std::size_t i = 1; i < items.size(); ++i) {
        gaps += model_max(items[i - 1].trailing, items[i].leading);
        total.min = model_sum(total.min, items[i].min);
        total.preferred = model_sum(total.preferred, items[i].preferred);
        total.max = model_sum(total.max, items[i].max);
    }
    const auto widened = [gaps](wide_int size) {
        return size >= model_endless ? model_endless : size + gaps;
    };
    return {items.front().leading, widened(total.min), widened(total.preferred),
            widened(std::max(total.max, total.preferred)), items.back().trailing};
}

[[nodiscard]] inline model_axis model_stack_across(const std::vector<model_axis>& items) {
    model_axis widest = items.front();
    for (const model_axis& item : items) {
        if (&item == &items.front()) continue;
        for (const auto field : {&model_axis::leading, &model_axis::min, &model_axis::preferred,
                                 &model_axis::max, &model_axis::trailing}) {
            widest.*field = model_max(widest.*field, item.*field);
        }
    }
    widest.max = std::max(widest.max, widest.preferred);
    return widest;
}

using model_tracks = std::map<int, model_axis>;

inline void model_widen(model_tracks& tracks, int index, const model_axis& by) {
    model_axis& at = tracks.try_emplace(index, model_axis{}).first->second;
    for (const auto field : {&model_axis::leading, &model_axis::min, &model_axis::preferred, &model_axis::max,
                             &model_axis::trailing}) {
        at.*field = std::max(at.*field, by.*field);
    }
}

[[nodiscard]] inline std::vector<model_axis> model_list(const model_tracks& tracks) {
    std::vector<model_axis> list;
    for (const auto& [index, track] : tracks) list.push_back(track);
    return list;
}

/// The gaps of a grid as they are measured: against the first track throughout.
[[nodiscard]] inline wide_int model_grid_gaps(const std::vector<model_axis>& tracks) {
    wide_int gaps = 0;
    for (std::size_t i = 1; i < tracks.size(); ++i) {
        gaps += std::max(tracks.front().trailing, tracks[i].leading);
    }
    return gaps;
}

[[nodiscard]] inline model_axis model_grid_axis(const std::vector<model_axis>& tracks) {
    const wide_int gaps = model_grid_gaps(tracks);
    model_axis total{tracks.front().leading, gaps, gaps, gaps, tracks.back().trailing};
    for (const model_axis& track : tracks) {
        total.min += track.min;
        total.preferred += track.preferred;
        total.max += track.max;
    }
    return total;
}

// How a layout arranges.

[[nodiscard]] inline wide_int model_stack_share(wide_int preferred, wide_int total, wide_int remaining) {
    if (total == 0) return 0;
    return static_cast<wide_int>((static_cast<float>(preferred) / static_cast<float>(total)) *
                                 static_cast<float>(remaining));
}
[[nodiscard]] inline wide_int model_grid_share(wide_int preferred, wide_int total, wide_int remaining) {
    if (total == 0) return 0;
    const double weight = static_cast<double>(static_cast<float>(preferred) / static_cast<float>(total));
    return static_cast<wide_int>(weight * static_cast<double>(remaining));
}
using model_share = wide_int (*)(wide_int preferred, wide_int total, wide_int remaining);

[[nodiscard]] inline wide_int model_total_preferred(const std::vector<model_axis>& items) {
    wide_int total = 0;
    for (const model_axis& item : items) total = model_sum(total, item.preferred);
    return total;
}

/// The sizes that come of an extent without the gaps.
[[nodiscard]] inline std::vector<wide_int> model_sizes(const std::vector<model_axis>& items, wide_int extent,
                                                       model_share share) {
    const wide_int total = model_total_preferred(items);
    std::vector<wide_int> sizes;
    for (const model_axis& item : items) {
        sizes.push_back(item.min);
        extent -= item.min;
    }
    while (extent > 0) {
        wide_int given = 0;
        for (std::size_t i = 0; i < items.size(); ++i) {
            const wide_int part = share(items[i].preferred, total, extent);
            const wide_int more = std::min(items[i].max - sizes[i], part);
            sizes[i] += more;
            given += more;
        }
        if (given == 0) break;
        extent -= given;
    }
    return sizes;
}

/// One behind the other, with the larger of two margins in between.
[[nodiscard]] inline std::vector<model_span> model_places(const std::vector<model_axis>& items,
                                                          const std::vector<wide_int>& sizes,
                                                          wide_int start) {
    std::vector<model_span> places;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) start += std::max(items[i - 1].trailing, items[i].leading);
        places.push_back({start, start + sizes[i]});
        start += sizes[i];
    }
    return places;
}

[[nodiscard]] inline wide_int model_stack_gaps(const std::vector<model_axis>& items) {
    wide_int gaps = 0;
    for (std::size_t i = 1; i < items.size(); ++i) {
        gaps += std::max(items[i - 1].trailing, items[i].leading);
    }
    return gaps;
}

/// An item of at most `max` in its room: at its start, in its middle or at its end.
[[nodiscard]] inline model_span model_aligned(model_span room, wide_int max, int alignment) {
    const wide_int extent = room.end - room.start;
    if (max >= extent) return room;
    wide_int start = room.start;
    if (alignment == 0) start = room.start + (extent - max) / 2;
    if (alignment == 1) start = room.end - max;
    return {start, start + max};
}

}  // namespace ui::mossHarbour::stubs
