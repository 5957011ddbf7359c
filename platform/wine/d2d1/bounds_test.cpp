#include "geometry_test.h"

namespace completion::test {

namespace {

class geometry_bounds : public geometry_test {};

TEST_F(geometry_bounds, of_a_circle_are_its_centre_and_radius) {
    expect_near(bounds_of(ellipse(30, 40, 20, 20).get()), {10, 20, 50, 60}, 1e-5f);
}

TEST_F(geometry_bounds, of_an_ellipse_that_is_turned_are_tight) {
    const D2D1::Matrix3x2F turn = D2D1::Matrix3x2F::Rotation(30);
    const float wide = std::sqrt(20 * 20 * 0.75f + 10 * 10 * 0.25f);
    const float high = std::sqrt(20 * 20 * 0.25f + 10 * 10 * 0.75f);
    const auto shape = ellipse(0, 0, 20, 10);
    expect_near(bounds_of(shape.get(), &turn), {-wide, -high, wide, high}, 1e-3f);
    expect_near(bounds_of(transformed(shape.get(), turn).get()), {-wide, -high, wide, high}, 0.02f);
}

TEST_F(geometry_bounds, of_a_rounded_rectangle_are_the_rectangle) {
    expect_near(bounds_of(rounded({1, 2, 30, 40}, 5, 8).get()), {1, 2, 30, 40}, 1e-5f);
    expect_near(bounds_of(rounded({1, 2, 30, 40}, 500, 800).get()), {1, 2, 30, 40}, 1e-5f);
}

TEST_F(geometry_bounds, of_a_turned_rounded_rectangle_follow_its_corners) {
    // The rectangle without its corners' circles, turned by 45 degrees, and a circle around each point of it.
    const D2D1::Matrix3x2F turn = D2D1::Matrix3x2F::Rotation(45);
    const float reach = (15 + 5) / std::numbers::sqrt2_v<float> + 5;
    expect_near(bounds_of(rounded({-20, -10, 20, 10}, 5, 5).get(), &turn), {-reach, -reach, reach, reach},
                1e-3f);
}

TEST_F(geometry_bounds, of_a_group_hold_its_members) {
    const auto left = ellipse(0, 0, 10, 10);
    const auto right = rounded({20, 5, 40, 50}, 3, 3);
    expect_near(bounds_of(group(D2D1_FILL_MODE_ALTERNATE, {left.get(), right.get()}).get()),
                {-10, -10, 40, 50}, 1e-4f);
}

TEST_F(geometry_bounds, of_a_cubic_curve_reach_both_of_its_turns) {
    const auto wave = path([](ID2D1GeometrySink* sink) {
        sink->BeginFigure({0, 0}, D2D1_FIGURE_BEGIN_FILLED);
        sink->AddBezier({{100, 100}, {0, -100}, {100, 0}});
        sink->EndFigure(D2D1_FIGURE_END_OPEN);
    });
    const float turn = 100 / (2 * std::numbers::sqrt3_v<float>);
    expect_near(bounds_of(wave.get()), {0, -turn, 100, turn}, 0.02f);
}

TEST_F(geometry_bounds, of_an_empty_path_are_inverted) {
    const auto empty = path([](ID2D1GeometrySink*) {});
    const D2D1_RECT_F bounds = bounds_of(empty.get());
    EXPECT_TRUE(bounds.right < bounds.left || bounds.bottom < bounds.top);
    const D2D1_RECT_F widened = widened_bounds_of(empty.get(), 2);
    EXPECT_TRUE(widened.right < widened.left || widened.bottom < widened.top);
}

struct arc_case {
    D2D1_ARC_SEGMENT arc;
    D2D1_RECT_F bounds;
};

class arc_bounds : public geometry_test, public testing::WithParamInterface<arc_case> {};

TEST_P(arc_bounds, from_the_origin) {
    const auto shape = path([](ID2D1GeometrySink* sink) {
        sink->BeginFigure({0, 0}, D2D1_FIGURE_BEGIN_FILLED);
        sink->AddArc(GetParam().arc);
        sink->EndFigure(D2D1_FIGURE_END_OPEN);
    });
    expect_near(bounds_of(shape.get()), GetParam().bounds, 0.02f);
}

constexpr auto clockwise = D2D1_SWEEP_DIRECTION_CLOCKWISE;
constexpr auto counter = D2D1_SWEEP_DIRECTION_COUNTER_CLOCKWISE;

INSTANTIATE_TEST_SUITE_P(
    kinds, arc_bounds,
    testing::Values(arc_case{{{40, 0}, {20, 20}, 0, clockwise, D2D1_ARC_SIZE_SMALL}, {0, -20, 40, 0}},
                    arc_case{{{40, 0}, {20, 20}, 0, counter, D2D1_ARC_SIZE_SMALL}, {0, 0, 40, 20}},
                    // Radii that don't reach grow together.
                    arc_case{{{40, 0}, {1, 0.5f}, 0, clockwise, D2D1_ARC_SIZE_SMALL}, {0, -10, 40, 0}},
                    // A quarter of the circle around (0, 20), and the rest of the one around (20, 0).
                    arc_case{{{20, 20}, {20, 20}, 0, clockwise, D2D1_ARC_SIZE_SMALL}, {0, 0, 20, 20}},
                    arc_case{{{20, 20}, {20, 20}, 0, clockwise, D2D1_ARC_SIZE_LARGE}, {0, -20, 40, 20}},
                    arc_case{{{20, 20}, {20, 20}, 0, counter, D2D1_ARC_SIZE_LARGE}, {-20, 0, 20, 40}},
                    // Turned by a quarter: the radii change places.
                    arc_case{{{40, 0}, {30, 20}, 90, clockwise, D2D1_ARC_SIZE_SMALL}, {0, -30, 40, 0}},
                    // No radius: a line.
                    arc_case{{{40, 10}, {0, 20}, 0, clockwise, D2D1_ARC_SIZE_SMALL}, {0, 0, 40, 10}}));

}  // namespace

}  // namespace completion::test
