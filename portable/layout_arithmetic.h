#pragma once

#include "portable/length.h"
#include "ui/mossHarbour/element_metrics.h"
#include "ui/mossHarbour/item_sizes.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace ui::mossHarbour {

// Arithmetic of layouts, in whole pixels, on one axis at a time. Sums that are out of range wrap round.

[[nodiscard]] constexpr int sum(int a, int b) noexcept {
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}
[[nodiscard]] constexpr int difference(int a, int b) noexcept {
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

/// Sum and maximum where a part without limit makes a whole without limit.
[[nodiscard]] constexpr int saturating_sum(int a, int b) noexcept {
    return std::max(a, b) >= unbounded_extent ? unbounded_extent : sum(a, b);
}
[[nodiscard]] constexpr int saturating_max(int a, int b) noexcept {
    return std::min(std::max(a, b), unbounded_extent);
}

/// A size with something fixed beside it: one without limit gains nothing.
[[nodiscard]] constexpr int enlarged(int size, int extra) noexcept {
    return size >= unbounded_extent ? unbounded_extent : sum(size, extra);
}

/// The whole part of a number that is not below zero; 0 for what is no number.
template <class Float>
[[nodiscard]] constexpr int whole_part(Float value) noexcept {
    if (!(value > 0)) return 0;
    constexpr auto limit = std::numeric_limits<int>::max();
    return value >= static_cast<Float>(limit) ? limit : static_cast<int>(value);
}

/// What an element wants on one axis.
struct axis_metrics {
    int leading;  // margin
    int min;
    int preferred;
    int max;
    int trailing;  // margin
};

/// What is given to it.
struct axis_span {
    int start;
    int end;
};

enum class axis { horizontal, vertical };

/// The two axes of what is laid out.
template <class T>
struct both_axes {
    T horizontal;
    T vertical;

    [[nodiscard]] constexpr T& operator[](axis which) noexcept {
        return which == axis::horizontal ? horizontal : vertical;
    }
    [[nodiscard]] constexpr const T& operator[](axis which) const noexcept {
        return which == axis::horizontal ? horizontal : vertical;
    }
};

[[nodiscard]] constexpr both_axes<axis_metrics> axes_of(const element_metrics& m) noexcept {
    return {{m.margin_left, m.min_width, m.preferred_width, m.max_width, m.margin_right},
            {m.margin_top, m.min_height, m.preferred_height, m.max_height, m.margin_bottom}};
}

[[nodiscard]] constexpr element_metrics metrics_of(const both_axes<axis_metrics>& axes) noexcept {
    const auto& [h, v] = axes;
    return {h.leading, v.leading, h.trailing, v.trailing,  h.min,
            v.min,     h.max,     v.max,      h.preferred, v.preferred};
}

/// What a client's choice for a size comes to, where the element says `own` for that very size.
[[nodiscard]] inline int chosen_size(int choice, int own, int preferred) noexcept {
    if (choice == use_preferred) return preferred;
    return choice == use_control_value ? own : decode_length(choice);
}

/// What an item wants on one axis; `item` has the client's lengths.
[[nodiscard]] inline axis_metrics item_metrics(const axis_metrics& element,
                                               const axis_metrics& item) noexcept {
    axis_metrics result{};
    result.min = chosen_size(item.min, element.min, element.preferred);
    result.max = chosen_size(item.max, element.max, element.preferred);
    result.preferred = chosen_size(item.preferred, element.preferred, element.preferred);
    if (result.preferred < result.min) {
        result.preferred = result.min;
    } else if (result.preferred > result.max) {
        result.preferred = result.max;
    }
    result.leading = std::max(decode_length(item.leading), element.leading);
    result.trailing = std::max(decode_length(item.trailing), element.trailing);
    return result;
}

/// What an item wants: its element's metrics with the item's sizes and margins applied.
[[nodiscard]] inline both_axes<axis_metrics> item_metrics(const element_metrics& element,
                                                          const item_sizes& item) noexcept {
    const auto axes = axes_of(element);
    return {item_metrics(axes.horizontal, {item.margin_left, item.min_width, item.preferred_width,
                                           item.max_width, item.margin_right}),
            item_metrics(axes.vertical, {item.margin_top, item.min_height, item.preferred_height,
                                         item.max_height, item.margin_bottom})};
}

/// Where something of at most `max` goes in its room.
enum class placement { near_side, centre, far_side };
[[nodiscard]] constexpr axis_span place_in(axis_span room, int max, placement where) noexcept {
    const int extent = difference(room.end, room.start);
    if (max >= extent) return room;
    const int spare = difference(extent, max);
    int start = room.start;
    if (where == placement::centre) start = sum(start, spare / 2);
    if (where == placement::far_side) start = sum(start, spare);
    return {start, sum(start, max)};
}

/// Hands out `extent` pixels to `count` parts in rounds: in each, part i grows by `share(i, remaining)`,
/// where `remaining` is what there was at the start of the round, and at most to `max(i)`. `size(i)` is what
/// grows. What no share reaches stays over.
template <class Size, class Max, class Share>
constexpr void grow_in_rounds(std::size_t count, int extent, Size&& size, Max&& max, Share&& share) {
    while (extent > 0) {
        int given = 0;
        for (std::size_t i = 0; i < count; ++i) {
            int& grown = size(i);
            const int addition = std::min(difference(max(i), grown), share(i, extent));
            grown = sum(grown, addition);
            given = sum(given, addition);
        }
        if (given == 0) return;
        extent = difference(extent, given);
    }
}

}  // namespace ui::mossHarbour
