// What layouts reckon with, at the ends of the range. A constant expression does not compile where it would
// be undefined, so these hold for every compiler.

#include "portable/layout_arithmetic.h"

#include <array>
#include <limits>

#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;

constexpr int highest = std::numeric_limits<int>::max();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int endless = unbounded_extent;
constexpr std::array extremes{lowest, lowest + 1,  -endless, -1,          0,
                              1,      endless - 1, endless,  highest - 1, highest};

static_assert(sum(highest, 1) == lowest);
static_assert(sum(lowest, -1) == highest);
static_assert(difference(lowest, 1) == highest);
static_assert(difference(0, lowest) == lowest);

static_assert(saturating_sum(1, 2) == 3);
static_assert(saturating_sum(endless, -5) == endless);
static_assert(saturating_sum(-5, endless + 1) == endless);
static_assert(saturating_sum(endless - 1, endless - 1) == 2 * endless - 2);  // neither is without limit
static_assert(saturating_max(1, 2) == 2);
static_assert(saturating_max(highest, lowest) == endless);

static_assert(enlarged(5, 3) == 8);
static_assert(enlarged(endless - 1, 3) == endless + 2);
static_assert(enlarged(endless, 3) == endless);
static_assert(enlarged(highest, 3) == endless);

static_assert(whole_part(2.9f) == 2);
static_assert(whole_part(-2.9f) == 0);
static_assert(whole_part(1e30f) == highest);
static_assert(whole_part(2147483648.0) == highest);
static_assert(whole_part(2147483646.9) == highest - 1);
static_assert(whole_part(std::numeric_limits<float>::infinity()) == highest);
static_assert(whole_part(std::numeric_limits<float>::quiet_NaN()) == 0);

constexpr bool is(axis_span a, axis_span b) {
    return a.start == b.start && a.end == b.end;
}
static_assert(is(place_in({10, 20}, 10, placement::centre), {10, 20}));
static_assert(is(place_in({10, 20}, 11, placement::far_side), {10, 20}));
static_assert(is(place_in({10, 20}, 3, placement::near_side), {10, 13}));
static_assert(is(place_in({10, 20}, 3, placement::centre), {13, 16}));
static_assert(is(place_in({10, 20}, 3, placement::far_side), {17, 20}));
static_assert(is(place_in({20, 10}, 3, placement::far_side), {20, 10}));  // no room at all

/// Any room with anything: whatever is less than its room has its own size, all else has the room's.
constexpr bool places_anything() {
    for (const int a : extremes) {
        for (const int b : extremes) {
            for (const int c : extremes) {
                for (const auto where : {placement::near_side, placement::centre, placement::far_side}) {
                    const auto [start, end] = place_in({a, b}, c, where);
                    const int extent = difference(b, a);
                    if (difference(end, start) != (c < extent ? c : extent)) return false;
                }
            }
        }
    }
    return true;
}
static_assert(places_anything());

/// Two parts that start at `a` and `b`, with maxima the other way round and shares of `share`, in `extent`.
constexpr int grown(int extent, int a, int b, int share) {
    std::array sizes{a, b};
    const std::array maxima{b, a};
    grow_in_rounds(
        2, extent, [&](std::size_t i) -> int& { return sizes[i]; }, [&](std::size_t i) { return maxima[i]; },
        [&](std::size_t, int) { return share; });
    return sum(sizes[0], sizes[1]);
}
static_assert(grown(10, 0, 5, 3) ==
              5 + 0);  // the first one grows to its maximum, the second one shrinks to it
static_assert(grown(highest, lowest, highest, 0) == -2);  // wraps round, and ends
static_assert(grown(highest, 0, 0, highest) == 0);

TEST(item_metrics, stay_defined_for_any_lengths) {
    for (const int said : extremes) {
        for (const int chosen : extremes) {
            const auto got = item_metrics(axis_metrics{said, said, said, said, said},
                                          axis_metrics{chosen, chosen, chosen, chosen, chosen});
            const bool is_own = chosen == use_preferred || chosen == use_control_value;
            EXPECT_EQ(got.min, is_own ? said : chosen);
            EXPECT_EQ(got.max, got.min);
            EXPECT_EQ(got.preferred, got.min);
            EXPECT_EQ(got.leading, std::max(said, chosen));
            EXPECT_EQ(got.trailing, got.leading);
        }
    }
}

}  // namespace
