#include "scene/rectangle.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

using namespace d2d::scene;

constexpr float infinity = std::numeric_limits<float>::infinity();
const float not_a_number = std::numeric_limits<float>::quiet_NaN();

void expect_rect(const D2D_RECT_F& expected, const D2D_RECT_F& actual) {
    EXPECT_EQ(expected.left, actual.left);
    EXPECT_EQ(expected.top, actual.top);
    EXPECT_EQ(expected.right, actual.right);
    EXPECT_EQ(expected.bottom, actual.bottom);
}

TEST(rectangle, contains_its_left_and_top_edges_but_not_the_others) {
    struct {
        float x, y;
        bool inside;
    } const cases[] = {
        {10, 20, true},     {29.99f, 39.99f, true}, {30, 30, false}, {15, 40, false},
        {9.99f, 30, false}, {15, 19.99f, false},    {30, 40, false}, {10, 40, false},
        {30, 20, false},    {20, 30, true},         {10, 39, true},  {29, 20, true},
    };
    for (const auto& at : cases)
        EXPECT_EQ(at.inside, contains({10, 20, 30, 40}, {at.x, at.y})) << at.x << ", " << at.y;
    EXPECT_FALSE(contains({10, 20, 10, 20}, {10, 20})) << "an empty one contains nothing";
    EXPECT_FALSE(contains({10, 20, 30, 40}, {not_a_number, 30}));
    EXPECT_TRUE(contains(maximal_rect, {0, 0}));
}

TEST(rectangle, union_takes_the_outer_edges) {
    expect_rect({0, 5, 30, 40}, unite({0, 10, 20, 40}, {10, 5, 30, 30}));
    expect_rect({-7, -8, 20, 40}, unite({0, 10, 20, 40}, {-7, -8, -7, -8}));
    expect_rect(maximal_rect, unite(maximal_rect, {1, 2, 3, 4}));
    expect_rect({-infinity, 0, infinity, 4}, unite({-infinity, 1, 3, 4}, {1, 0, infinity, 2}));
}

TEST(rectangle, what_is_not_a_number_never_survives_a_union_with_a_number) {
    const D2D_RECT_F odd{not_a_number, not_a_number, not_a_number, not_a_number};
    expect_rect({1, 2, 3, 4}, unite(odd, {1, 2, 3, 4}));
    expect_rect({1, 2, 3, 4}, unite({1, 2, 3, 4}, odd));
}

TEST(rectangle, translation_adds_the_offsets_alone) {
    // Four mapped corners would give the same here; with a maximal rectangle they would overflow.
    expect_rect({15, 27, 35, 47}, map_rect({10, 20, 30, 40}, translation_matrix(5, 7)));
    expect_rect({35, 27, 15, 47}, map_rect({30, 20, 10, 40}, translation_matrix(5, 7)));
    expect_rect(maximal_rect, map_rect(maximal_rect, translation_matrix(5, 7)));
}

TEST(rectangle, other_matrices_give_the_bounds_of_the_mapped_corners) {
    struct {
        D2D_MATRIX_3X2_F matrix;
        D2D_RECT_F mapped;
    } const cases[] = {
        {{{{2, 0, 0, 3, 0, 0}}}, {20, 60, 60, 120}},       {{{{-2, 0, 0, 3, 1, 2}}}, {-59, 62, -19, 122}},
        {{{{0, 1, -1, 0, 0, 0}}}, {-40, 10, -20, 30}},      // a quarter turn
        {{{{0, -1, 1, 0, 100, 0}}}, {120, -30, 140, -10}},  // the other way
        {{{{1, 0, 0.5f, 1, 0, 0}}}, {20, 20, 50, 40}},      // a slant
        {{{{1, 1, -1, 1, 0, 0}}}, {-30, 30, 10, 70}},       // an eighth of a turn, larger
    };
    for (const auto& at : cases) expect_rect(at.mapped, map_rect({10, 20, 30, 40}, at.matrix));
    // An inverted rectangle is put right by its corners.
    expect_rect({20, 60, 60, 120}, map_rect({30, 40, 10, 20}, cases[0].matrix));
}

TEST(matrix, product_maps_by_the_left_factor_first) {
    const D2D_MATRIX_3X2_F scale{{{2, 0, 0, 3, 0, 0}}};
    const D2D_MATRIX_3X2_F turn{{{0, 1, -1, 0, 7, 8}}};
    const D2D_POINT_2F step = map_point(map_point({4, 5}, scale), turn);
    const D2D_POINT_2F at_once = map_point({4, 5}, multiply(scale, turn));
    EXPECT_EQ(-8, at_once.x);
    EXPECT_EQ(16, at_once.y);
    EXPECT_EQ(step.x, at_once.x);
    EXPECT_EQ(step.y, at_once.y);
    const D2D_MATRIX_3X2_F product = multiply(turn, translation_matrix(1, 2));
    EXPECT_EQ(8, product._31);
    EXPECT_EQ(10, product._32);
    EXPECT_TRUE(is_identity(multiply(identity_matrix, identity_matrix)));
}

TEST(matrix, identity_is_compared_as_numbers) {
    EXPECT_TRUE(is_identity({{{1, -0.0f, -0.0f, 1, -0.0f, -0.0f}}}));
    EXPECT_FALSE(is_identity({{{1, 0, 0, 1, 0, std::numeric_limits<float>::denorm_min()}}}));
    EXPECT_TRUE(is_translation({{{1, 0, 0, 1, 0, 5}}}));
    EXPECT_FALSE(is_translation({{{1, 0, 0, 1.0000001f, 0, 5}}}));
    EXPECT_FALSE(is_translation({{{not_a_number, 0, 0, 1, 0, 5}}}));
}

}  // namespace
