#include "portable/stack_layout_impl.h"

#include <stdexcept>

namespace ui::mossHarbour {
namespace {

placement placement_of(item_alignment alignment) noexcept {
    switch (alignment) {
        case item_alignment::near_side:
            return placement::near_side;
        case item_alignment::centre:
            return placement::centre;
        default:
            return placement::far_side;
    }
}

/// Puts an item behind those of `total`, but for the gap between them.
void append(axis_metrics& total, const axis_metrics& next) noexcept {
    total.min = saturating_sum(total.min, next.min);
    total.preferred = saturating_sum(total.preferred, next.preferred);
    total.max = saturating_sum(total.max, next.max);
    total.trailing = next.trailing;
}

void widen(axis_metrics& widest, const axis_metrics& next) noexcept {
    widest.leading = saturating_max(widest.leading, next.leading);
    widest.min = saturating_max(widest.min, next.min);
    widest.preferred = saturating_max(widest.preferred, next.preferred);
    widest.max = saturating_max(widest.max, next.max);
    widest.trailing = saturating_max(widest.trailing, next.trailing);
}

}  // namespace

element_metrics stack_layout_impl::measure_items() {
    if (items.empty()) throw std::logic_error("empty layouts not supported!");
    both_axes<axis_metrics> total = items.front().wanted;
    int gaps = 0;
    for (std::size_t i = 1; i < items.size(); ++i) {
        const auto& next = items[i].wanted;
        gaps = sum(gaps, saturating_max(total[along].trailing, next[along].leading));
        append(total[along], next[along]);
        widen(total[across], next[across]);
    }
    for (axis_metrics* const each : {&total.horizontal, &total.vertical}) {
        each->max = std::max(each->max, each->preferred);
    }
    total[along].min = enlarged(total[along].min, gaps);
    total[along].preferred = enlarged(total[along].preferred, gaps);
    total[along].max = enlarged(total[along].max, gaps);
    return metrics_of(total);
}

/// The items in `extent`: at least their minimums, which may be more than there is.
std::vector<stack_layout_impl::grown_item> stack_layout_impl::grow(int extent) const {
    std::vector<grown_item> grown;
    grown.reserve(items.size());
    int total_preferred = 0;
    int trailing = 0;
    for (const item& at : items) {
        const axis_metrics& wanted = at.wanted[along];
        if (grown.empty()) {
            total_preferred = wanted.preferred;
        } else {
            extent = difference(extent, std::max(trailing, wanted.leading));
            total_preferred = saturating_sum(total_preferred, wanted.preferred);
        }
        trailing = wanted.trailing;
        extent = difference(extent, wanted.min);
        grown.push_back({wanted.min, wanted.max, static_cast<float>(wanted.preferred)});
    }
    for (grown_item& at : grown) at.weight /= static_cast<float>(total_preferred);
    grow_in_rounds(
        grown.size(), extent, [&](std::size_t i) -> int& { return grown[i].size; },
        [&](std::size_t i) { return grown[i].max; },
        [&](std::size_t i, int remaining) {
            return whole_part(grown[i].weight * static_cast<float>(remaining));
        });
    return grown;
}

void stack_layout_impl::arrange_items(int left, int top, int right, int bottom) {
    const both_axes<axis_span> room{{left, right}, {top, bottom}};
    const auto grown = grow(difference(room[along].end, room[along].start));
    int cursor = room[along].start;
    int trailing = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        item& at = items[i];
        if (i > 0) cursor = sum(cursor, std::max(trailing, at.wanted[along].leading));
        trailing = at.wanted[along].trailing;
        at.given[along] = {cursor, sum(cursor, grown[i].size)};
        at.given[across] = place_in(room[across], at.wanted[across].max, placement_of(at.details.alignment));
        cursor = at.given[along].end;
    }
}

}  // namespace ui::mossHarbour
