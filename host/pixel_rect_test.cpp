#include "host/pixel_rect.h"
#include "support/random_seed.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace {

using d2d::to_pixels;

struct pixel_case {
    D2D_RECT_F rect;
    D2D_POINT_2F origin;
    RECT expected;
};

class pixel_rect : public testing::TestWithParam<pixel_case> {};

TEST_P(pixel_rect, is_the_smallest_around) {
    const RECT got = to_pixels(GetParam().rect, GetParam().origin);
    const RECT& expected = GetParam().expected;
    EXPECT_EQ(expected.left, got.left);
    EXPECT_EQ(expected.top, got.top);
    EXPECT_EQ(expected.right, got.right);
    EXPECT_EQ(expected.bottom, got.bottom);
}

constexpr float infinite = std::numeric_limits<float>::infinity();
constexpr float no_number = std::numeric_limits<float>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(
    sides, pixel_rect,
    testing::Values(pixel_case{{0.2f, 0.2f, 0.4f, 0.4f}, {}, {0, 0, 1, 1}},
                    pixel_case{{1, 2, 3, 4}, {}, {1, 2, 3, 4}},
                    pixel_case{{-0.5f, -1.5f, -0.5f, -1.5f}, {}, {-1, -2, 0, -1}},
                    pixel_case{{1, 2, 3, 4}, {10.5f, -20.25f}, {11, -19, 14, -16}},
                    pixel_case{{0.5f, 0.5f, 1, 1}, {0.5f, 0.5f}, {1, 1, 2, 2}},
                    pixel_case{{-1e6f, -1e6f, 1e6f, 1e6f}, {}, {-32767, -32767, 32766, 32766}},
                    pixel_case{{1e6f, -3e9f, -1e6f, 3e9f}, {}, {32766, -32767, -32767, 32766}},
                    pixel_case{{-32768, -32767, 32766, 32767}, {}, {-32767, -32767, 32766, 32766}},
                    pixel_case{
                        {-infinite, -infinite, infinite, infinite}, {}, {-32767, -32767, 32766, 32766}},
                    pixel_case{{no_number, 1, no_number, 2}, {}, {-32767, 1, -32767, 2}}));

TEST(pixel_rects, contain_the_rectangle_and_reach_less_than_a_pixel_beyond) {
    const unsigned seed = test_support::random_seed();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> side(-2000.0f, 2000.0f);
    for (int i = 0; i < 10000; ++i) {
        const D2D_RECT_F rect{side(random), side(random), side(random), side(random)};
        const D2D_POINT_2F origin{side(random), side(random)};
        const RECT got = to_pixels(rect, origin);
        const D2D_RECT_F back = d2d::to_rect_f(got);
        const D2D_RECT_F moved{rect.left + origin.x, rect.top + origin.y, rect.right + origin.x,
                               rect.bottom + origin.y};
        ASSERT_LE(back.left, moved.left);
        ASSERT_LE(back.top, moved.top);
        ASSERT_GE(back.right, moved.right);
        ASSERT_GE(back.bottom, moved.bottom);
        ASSERT_LT(moved.left - back.left, 1.0f);
        ASSERT_LT(back.bottom - moved.bottom, 1.0f);
    }
}

}  // namespace
