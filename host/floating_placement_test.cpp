#include "host/floating_placement.h"
#include "support/random_seed.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace {

using d2d::scene::floating_placement;
using d2d::scene::place_floating;

struct placement_case {
    D2D_RECT_F bounds;
    D2D_POINT_2F position;
    RECT rect;
    D2D_POINT_2F origin;
};

class floating_placements : public testing::TestWithParam<placement_case> {};

TEST_P(floating_placements, round_by_the_sign_of_each_side) {
    const placement_case& given = GetParam();
    const floating_placement got = place_floating(given.bounds, given.position);
    EXPECT_EQ(given.rect.left, got.rect.left);
    EXPECT_EQ(given.rect.top, got.rect.top);
    EXPECT_EQ(given.rect.right, got.rect.right);
    EXPECT_EQ(given.rect.bottom, got.rect.bottom);
    EXPECT_EQ(given.origin.x, got.origin.x);
    EXPECT_EQ(given.origin.y, got.origin.y);
}

constexpr float just_below_100 = 99.99999f;
constexpr float just_above_100 = 100.00001f;

INSTANTIATE_TEST_SUITE_P(
    whole, floating_placements,
    testing::Values(placement_case{{0, 0, 20, 10}, {100, 50}, {100, 50, 120, 60}, {0, 0}},
                    placement_case{{-5, 3, 20, 10}, {100, 50}, {95, 53, 120, 60}, {5, -3}},
                    placement_case{{0, 0, 20, 10}, {-300, -50}, {-300, -50, -280, -40}, {0, 0}},
                    placement_case{{-10, -10, 10, 10}, {0, 0}, {-10, -10, 10, 10}, {10, 10}},
                    placement_case{{0, 0, 0, 0}, {100, 50}, {100, 50, 100, 50}, {0, 0}},
                    placement_case{{0, 0, 1, 1}, {16777215, 0}, {16777215, 0, 16777216, 1}, {0, 0}}));

INSTANTIATE_TEST_SUITE_P(
    with_fractions, floating_placements,
    testing::Values(
        placement_case{{0.5f, 0.5f, 10.5f, 10.5f}, {100.25f, 50.75f}, {100, 51, 111, 62}, {0.25f, -0.25f}},
        placement_case{{0, 0, 10, 10}, {100.75f, 50.5f}, {100, 50, 111, 61}, {0.75f, 0.5f}},
        placement_case{{0.25f, 0.75f, 10, 10}, {0, 0}, {0, 0, 10, 10}, {0, 0}},
        placement_case{{0, 0, 0, 0}, {100.5f, 50.5f}, {100, 50, 101, 51}, {0.5f, 0.5f}},
        placement_case{{0, 0, 0, 0},
                       {just_below_100, just_above_100},
                       {99, 100, 100, 101},
                       {just_below_100 - 99, just_above_100 - 100}}));

// Toward zero on the left, away from it on the right, on either side of it.
INSTANTIATE_TEST_SUITE_P(
    left_of_the_primary_monitor, floating_placements,
    testing::Values(placement_case{{0, 0, 10, 10}, {-10.5f, -10.5f}, {-10, -10, -1, -1}, {-0.5f, -0.5f}},
                    placement_case{{0, 0, 11, 11}, {-10.5f, -10.5f}, {-10, -10, 1, 1}, {-0.5f, -0.5f}},
                    placement_case{{-0.5f, -0.25f, 0, 0}, {0, 0}, {0, 0, 0, 0}, {0, 0}},
                    placement_case{{-2, -2, -0.25f, -0.25f}, {0, 0}, {-2, -2, -1, -1}, {2, 2}},
                    placement_case{{0, 0, 4, 4}, {-1000.25f, 7.75f}, {-1000, 7, -997, 12}, {-0.25f, 0.75f}}));

constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float greatest = std::numeric_limits<float>::max();

TEST(floating_placement, of_sides_beyond_all_screens_still_has_a_size) {
    for (const float far_away : {3e9f, greatest, infinite}) {
        const RECT rect = place_floating({-far_away, -far_away, far_away, far_away}, {10, 20}).rect;
        EXPECT_EQ(-1073741760, rect.left);
        EXPECT_EQ(-1073741760, rect.top);
        EXPECT_EQ(1073741760, rect.right);
        EXPECT_EQ(2147483520, rect.bottom - rect.top);
    }
    const float no_number = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(d2d::scene::same_rect({-1073741760, 1, -1073741760, 2},
                                      place_floating({no_number, 1, no_number, 2}, {0, 0}).rect));
}

/// The same in integers, for numbers that are multiples of 1/256.
struct exact_placement {
    static constexpr int parts = 256;

    static int toward_zero(int side) { return side / parts; }
    static int away_from_zero(int side) {
        return side >= 0 ? (side + parts - 1) / parts : (side - parts + 1) / parts;
    }
};

TEST(floating_placement, agrees_with_exact_arithmetic) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> side(-4000 * exact_placement::parts, 4000 * exact_placement::parts);
    std::uniform_int_distribution<int> small_step(-2, 2);
    const auto number = [&](bool nearly_whole) {
        const int any = side(random);
        return nearly_whole ? any / exact_placement::parts * exact_placement::parts + small_step(random)
                            : any;
    };
    const auto as_float = [](int value) {
        return static_cast<float>(value) / static_cast<float>(exact_placement::parts);
    };
    for (int i = 0; i < 20000; ++i) {
        const bool nearly_whole = i % 2 == 0;
        const int left = number(nearly_whole), top = number(nearly_whole), right = number(nearly_whole),
                  bottom = number(nearly_whole), x = number(nearly_whole), y = number(nearly_whole);
        const floating_placement got = place_floating(
            {as_float(left), as_float(top), as_float(right), as_float(bottom)}, {as_float(x), as_float(y)});
        const RECT expected{exact_placement::toward_zero(left + x), exact_placement::toward_zero(top + y),
                            exact_placement::away_from_zero(right + x),
                            exact_placement::away_from_zero(bottom + y)};
        ASSERT_TRUE(d2d::scene::same_rect(expected, got.rect))
            << left << ' ' << top << ' ' << right << ' ' << bottom << " at " << x << ' ' << y;
        ASSERT_EQ(as_float(x - expected.left * exact_placement::parts), got.origin.x);
        ASSERT_EQ(as_float(y - expected.top * exact_placement::parts), got.origin.y);
    }
}

TEST(floating_placement, covers_the_bounds_on_the_primary_monitor_and_little_more) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> place(0.0f, 2000.0f);
    std::uniform_real_distribution<float> extent(0.0f, 500.0f);
    for (int i = 0; i < 20000; ++i) {
        const D2D_RECT_F bounds{place(random), place(random), place(random), place(random)};
        const D2D_RECT_F grown{bounds.left, bounds.top, bounds.left + extent(random),
                               bounds.top + extent(random)};
        const D2D_POINT_2F position{place(random), place(random)};
        const floating_placement got = place_floating(grown, position);
        const auto left = static_cast<float>(got.rect.left);
        const auto bottom = static_cast<float>(got.rect.bottom);
        ASSERT_LE(left, grown.left + position.x);
        ASSERT_GE(bottom, grown.bottom + position.y);
        ASSERT_LT(grown.left + position.x - left, 1.0f);
        ASSERT_LT(bottom - (grown.bottom + position.y), 1.0f);
        ASSERT_NEAR(position.x, got.origin.x + left, 0.001f);
    }
}

}  // namespace
