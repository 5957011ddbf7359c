#include "scene/layout_distribution.h"

#include <cmath>

namespace d2d::scene::layout {
namespace {

/// The largest whole number up to `value`. `std::floor` is a slow call on some platforms.
float whole(float value) noexcept {
    constexpr float all_are_whole = 8388608.0f;  // 2^23: from here on no float has a fraction
    if (!(std::fabs(value) < all_are_whole)) return value;
    const float truncated = static_cast<float>(static_cast<int>(value));
    return truncated > value ? truncated - 1.0f : truncated;
}

/// `weight × free / total`, in whole pixels. The product is worked out in double precision, where weights
/// without limit do not overflow.
float share_of(float weight, float free, float total) noexcept {
    return whole(static_cast<float>(static_cast<double>(weight) * static_cast<double>(free) /
                                    static_cast<double>(total)));
}

/// Lets an item grow by `share`, up to its maximum; returns by how much.
float grow(length_share& item, float share) noexcept {
    const float growth = std::min(item.maximum - item.length, share);
    item.length += growth;
    return growth;
}

[[nodiscard]] bool can_grow(const length_share& item) noexcept {
    return item.length < item.maximum;
}

/// A round: the items that can still grow share `free` by their preferred lengths. Returns what was given.
float give_by_preference(float free, std::span<length_share> items) noexcept {
    float total = 0;
    for (const auto& item : items) {
        if (can_grow(item)) total = saturating_sum(total, item.preferred);
    }
    if (total == 0) return 0;
    float given = 0;
    for (auto& item : items) {
        if (can_grow(item)) given += grow(item, share_of(item.preferred, free, total));
    }
    return given;
}

/// A round: items with a limit share `free` by their maximal lengths; each without one takes all of it. That
/// can be more than there is: kept, `share_rest` takes it back from the latter.
float give_by_maximum(float free, std::span<length_share> items) noexcept {
    float total = 0;
    for (const auto& item : items) {
        if (can_grow(item) && !is_unlimited(item.maximum)) total = saturating_sum(total, item.maximum);
    }
    if (total == 0) return 0;
    float given = 0;
    for (auto& item : items) {
        if (!can_grow(item)) continue;
        given += grow(item, is_unlimited(item.maximum) ? free : share_of(item.maximum, free, total));
    }
    return given;
}

/// Gives what is left to the items without a limit, or takes from them what lacks, below their minimum too.
void share_rest(float free, std::span<length_share> items) noexcept {
    const auto takers = std::count_if(items.begin(), items.end(),
                                      [](const length_share& item) { return is_unlimited(item.maximum); });
    if (takers == 0) return;
    const float each = free / static_cast<float>(takers);
    for (auto& item : items) {
        if (is_unlimited(item.maximum)) item.length += each;
    }
}

/// Rounds until there is nothing left or nothing was given; preferred lengths below zero can take instead of
/// giving, and then might do so for ever. Returns what is left.
template <class Round>
float give_rounds(float free, std::span<length_share> items, Round round) noexcept {
    while (free > 0) {
        const float given = round(free, items);
        free -= given;
        if (!(given > 0)) break;
    }
    return free;
}

}  // namespace

void distribute(float free, std::span<length_share> items) noexcept {
    free = give_rounds(free, items, give_by_preference);
    free = give_rounds(free, items, give_by_maximum);
    share_rest(free, items);
}

}  // namespace d2d::scene::layout
