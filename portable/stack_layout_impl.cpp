#include "portable/stack_layout_impl.h"

#include <stdexcept>

namespace ui::mossHarbour {
namespace {

/// A total that has no limit gains nothing by the gaps.
int with_gaps(int total, int gaps) noexcept {
    return total >= unbounded_extent ? unbounded_extent : sum(total, gaps);
}

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

}  // namespace

axis_metrics stack_layout_impl::measure_along() const {
    axis_metrics total = items.front().wanted[along];
    int gaps = 0;
    for (std::size_t i = 1; i < items.size(); ++i) {
        const auto& next = items[i].wanted[along];
        gaps = sum(gaps, saturating_max(total.trailing, next.leading));
        total.min = saturating_sum(total.min, next.min);
        total.preferred = saturating_sum(total.preferred, next.preferred);
        total.max = saturating_sum(total.max, next.max);
        total.trailing = next.trailing;
    }
    return {total.leading, with_gaps(total.min, gaps), with_gaps(total.preferred, gaps),
            with_gaps(std::max(total.max, total.preferred), gaps), total.trailing};
}

axis_metrics stack_layout_impl::measure_across() const {
    axis_metrics widest = items.front().wanted[across];
    for (std::size_t i = 1; i < items.size(); ++i) {
        const auto& next = items[i].wanted[across];
        widest.leading = saturating_max(widest.leading, next.leading);
        widest.min = saturating_max(widest.min, next.min);
        widest.preferred = saturating_max(widest.preferred, next.preferred);
        widest.max = saturating_max(widest.max, next.max);
        widest.trailing = saturating_max(widest.trailing, next.trailing);
    }
    widest.max = std::max(widest.max, widest.preferred);
    return widest;
}

element_metrics stack_layout_impl::measure_items() {
    if (items.empty()) throw std::logic_error("empty layouts not supported!");
    both_axes<axis_metrics> result{};
    result[along] = measure_along();
    result[across] = measure_across();
    return metrics_of(result);
}

/// The sizes of the items in `extent`: at least their minimums, which may be more than there is.
std::vector<int> stack_layout_impl::sizes_along(int extent) const {
    std::vector<int> sizes(items.size());
    int total_preferred = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto& wanted = items[i].wanted[along];
        if (i > 0) {
            const int gap = std::max(items[i - 1].wanted[along].trailing, wanted.leading);
            extent = difference(extent, gap);
        }
        sizes[i] = wanted.min;
        extent = difference(extent, wanted.min);
        total_preferred = i == 0 ? wanted.preferred : saturating_sum(total_preferred, wanted.preferred);
    }
    grow_in_rounds(
        items.size(), extent, [&](std::size_t i) -> int& { return sizes[i]; },
        [&](std::size_t i) { return items[i].wanted[along].max; },
        [&](std::size_t i, int remaining) {
            const auto part = static_cast<float>(items[i].wanted[along].preferred);
            return whole_part(part / static_cast<float>(total_preferred) * static_cast<float>(remaining));
        });
    return sizes;
}

void stack_layout_impl::arrange_items(int left, int top, int right, int bottom) {
    const both_axes<axis_span> room{{left, right}, {top, bottom}};
    const auto sizes = sizes_along(difference(room[along].end, room[along].start));
    int cursor = room[along].start;
    for (std::size_t i = 0; i < items.size(); ++i) {
        auto& [details, element, wanted, given] = items[i];
        if (i > 0) {
            cursor = sum(cursor, std::max(items[i - 1].wanted[along].trailing, wanted[along].leading));
        }
        given[along] = {cursor, sum(cursor, sizes[i])};
        given[across] = place_in(room[across], wanted[across].max, placement_of(details.alignment));
        cursor = given[along].end;
    }
}

}  // namespace ui::mossHarbour
