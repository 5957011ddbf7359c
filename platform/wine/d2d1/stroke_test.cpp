#include "geometry_test.h"

namespace completion::test {

namespace {

constexpr auto flat = D2D1_CAP_STYLE_FLAT;
constexpr auto round_cap = D2D1_CAP_STYLE_ROUND;
constexpr auto square = D2D1_CAP_STYLE_SQUARE;
constexpr auto triangle = D2D1_CAP_STYLE_TRIANGLE;
constexpr auto mitered = D2D1_LINE_JOIN_MITER;
constexpr auto bevel = D2D1_LINE_JOIN_BEVEL;
constexpr auto round_join = D2D1_LINE_JOIN_ROUND;
constexpr auto miter_or_bevel = D2D1_LINE_JOIN_MITER_OR_BEVEL;

class strokes : public geometry_test {};

TEST_F(strokes, of_closed_forms_widen_the_bounds_by_half_the_width) {
    expect_near(widened_bounds_of(ellipse(30, 40, 20, 10).get(), 3), {8.5f, 28.5f, 51.5f, 51.5f}, 1e-4f);
    expect_near(widened_bounds_of(rounded({0, 0, 40, 30}, 5, 5).get(), 4), {-2, -2, 42, 32}, 1e-4f);
    expect_near(widened_bounds_of(rectangle(0, 0, 40, 30).get(), 4), {-2, -2, 42, 32}, 1e-5f);
}

TEST_F(strokes, are_wide_as_the_transform_makes_them) {
    const D2D1::Matrix3x2F world = D2D1::Matrix3x2F::Scale(2, 3) * D2D1::Matrix3x2F::Translation(7, 0);
    const D2D1_RECT_F expected{7 - 4, -6, 7 + 84, 96};
    expect_near(widened_bounds_of(rectangle(0, 0, 40, 30).get(), 4, nullptr, &world), expected, 1e-4f);
    const auto same = lines({{0, 0}, {40, 0}, {40, 30}, {0, 30}}, D2D1_FIGURE_END_CLOSED);
    expect_near(widened_bounds_of(same.get(), 4, nullptr, &world), expected, 1e-3f);
    // What a geometry's own transform makes larger, its pen does not.
    const auto larger = transformed(same.get(), D2D1::Matrix3x2F::Scale(2, 3));
    expect_near(widened_bounds_of(larger.get(), 4), {-2, -2, 82, 92}, 1e-3f);
    EXPECT_TRUE(stroke_has(larger.get(), {40, -1.9f}, 4));
    EXPECT_FALSE(stroke_has(larger.get(), {40, -2.1f}, 4));
}

TEST_F(strokes, of_a_curved_path_keep_within_the_tolerance) {
    const auto circle = path([](ID2D1GeometrySink* sink) {
        sink->BeginFigure({-20, 0}, D2D1_FIGURE_BEGIN_HOLLOW);
        sink->AddArc({{20, 0}, {20, 20}, 0, D2D1_SWEEP_DIRECTION_CLOCKWISE, D2D1_ARC_SIZE_SMALL});
        sink->AddArc({{-20, 0}, {20, 20}, 0, D2D1_SWEEP_DIRECTION_CLOCKWISE, D2D1_ARC_SIZE_SMALL});
        sink->EndFigure(D2D1_FIGURE_END_CLOSED);
    });
    expect_near(widened_bounds_of(circle.get(), 6), {-23, -23, 23, 23}, 0.1f);
    for (int i = 0; i < 48; ++i) {
        const float angle = static_cast<float>(i) * std::numbers::pi_v<float> / 24;
        for (const float radius : {16.9f, 17.1f, 22.9f, 23.1f}) {
            const D2D1_POINT_2F p{radius * std::cos(angle), radius * std::sin(angle)};
            EXPECT_EQ(stroke_has(circle.get(), p, 6), radius > 17 && radius < 23) << p.x << ' ' << p.y;
            EXPECT_EQ(stroke_has(ellipse(0, 0, 20, 20).get(), p, 6), radius > 17 && radius < 23);
        }
    }
}

TEST_F(strokes, of_a_rounded_rectangle_follow_the_corner) {
    const auto shape = rounded({0, 0, 40, 30}, 10, 10);
    const float diagonal = 10 / std::numbers::sqrt2_v<float>;
    for (const float off : {-1.1f, -0.9f, 0.9f, 1.1f}) {
        const float in = diagonal + off / std::numbers::sqrt2_v<float>;
        EXPECT_EQ(stroke_has(shape.get(), {10 - in, 10 - in}, 2), std::abs(off) < 1);
        EXPECT_EQ(stroke_has(shape.get(), {20, off}, 2), std::abs(off) < 1);
    }
}

TEST_F(strokes, reach_beyond_their_edge_by_less_than_the_tolerance) {
    const auto line = lines({{0, 0}, {40, 0}}, D2D1_FIGURE_END_OPEN);
    const auto circle = ellipse(0, 0, 20, 20);
    for (const float tolerance : {0.25f, 1.0f}) {
        EXPECT_TRUE(stroke_has(line.get(), {20, 2 + 0.9f * tolerance}, 4, nullptr, tolerance));
        EXPECT_FALSE(stroke_has(line.get(), {20, 2 + 1.1f * tolerance}, 4, nullptr, tolerance));
        EXPECT_TRUE(stroke_has(circle.get(), {22 + 0.9f * tolerance, 0}, 4, nullptr, tolerance));
        EXPECT_FALSE(stroke_has(circle.get(), {22 + 1.1f * tolerance, 0}, 4, nullptr, tolerance));
    }
}

struct cap_case {
    D2D1_CAP_STYLE cap;
    float reach;
    /// How far the line reaches at half of half its width.
    float reach_aside;
};

class caps : public geometry_test, public testing::WithParamInterface<cap_case> {};

TEST_P(caps, end_an_open_line) {
    const auto line = lines({{0, 0}, {40, 0}}, D2D1_FIGURE_END_OPEN);
    const auto pen = style(GetParam().cap, mitered);
    expect_near(widened_bounds_of(line.get(), 8, pen.get()),
                {-GetParam().reach, -4, 40 + GetParam().reach, 4}, 0.02f);
    for (const auto& [aside, reach] : {std::pair{0.0f, GetParam().reach}, {2.0f, GetParam().reach_aside}}) {
        EXPECT_TRUE(stroke_has(line.get(), {-reach + 0.1f, aside}, 8, pen.get()));
        EXPECT_FALSE(stroke_has(line.get(), {-reach - 0.1f, aside}, 8, pen.get()));
        EXPECT_TRUE(stroke_has(line.get(), {40 + reach - 0.1f, -aside}, 8, pen.get()));
        EXPECT_FALSE(stroke_has(line.get(), {40 + reach + 0.1f, -aside}, 8, pen.get()));
    }
}

INSTANTIATE_TEST_SUITE_P(kinds, caps,
                         testing::Values(cap_case{flat, 0, 0}, cap_case{square, 4, 4},
                                         cap_case{round_cap, 4, 3.4641f}, cap_case{triangle, 4, 2}));

struct join_case {
    D2D1_LINE_JOIN join;
    float miter_limit;
    /// How far the corner of a right angle reaches outward along the diagonal, with half a width of 1.
    float reach;
    /// How far the bounds go beyond the corner.
    float bounds;
};

class joins : public geometry_test, public testing::WithParamInterface<join_case> {};

TEST_P(joins, fill_a_right_angle) {
    const auto corner = lines({{0, 40}, {0, 0}, {40, 0}}, D2D1_FIGURE_END_OPEN);
    const auto box = rectangle(0, 0, 60, 40);
    const auto pen = style(flat, GetParam().join, GetParam().miter_limit);
    const float half = 5;
    const float reach = GetParam().reach * half / std::numbers::sqrt2_v<float>;
    for (ID2D1Geometry* shape :
         {static_cast<ID2D1Geometry*>(corner.get()), static_cast<ID2D1Geometry*>(box.get())}) {
        EXPECT_TRUE(stroke_has(shape, {-reach + 0.1f, -reach + 0.1f}, 2 * half, pen.get()));
        EXPECT_FALSE(stroke_has(shape, {-reach - 0.1f, -reach - 0.1f}, 2 * half, pen.get()));
    }
    // Seen with the corner up, the bounds tell one join from another.
    const D2D1::Matrix3x2F turn = D2D1::Matrix3x2F::Rotation(45);
    EXPECT_NEAR(widened_bounds_of(corner.get(), 2 * half, pen.get(), &turn).top, -GetParam().bounds * half,
                0.02f);
    EXPECT_NEAR(widened_bounds_of(box.get(), 2 * half, pen.get(), &turn).top, -GetParam().bounds * half,
                0.02f);
}

constexpr float root = std::numbers::sqrt2_v<float>;

INSTANTIATE_TEST_SUITE_P(kinds, joins,
                         testing::Values(join_case{mitered, 10, root, root},
                                         join_case{miter_or_bevel, 10, root, root},
                                         join_case{bevel, 10, 1 / root, 1 / root},
                                         join_case{round_join, 10, 1, 1},
                                         join_case{miter_or_bevel, 1.3f, 1 / root, 1 / root},
                                         join_case{mitered, 1.2f, 1.2f, 1.2f}));

TEST_F(strokes, with_a_sharp_angle_are_beveled_beyond_the_limit) {
    const auto sharp = lines({{0, -5}, {50, 0}, {0, 5}}, D2D1_FIGURE_END_OPEN);
    const float half_sine = 5 / std::hypot(50.0f, 5.0f);
    const auto reach = [&](D2D1_LINE_JOIN join, float limit) {
        return widened_bounds_of(sharp.get(), 4, style(flat, join, limit).get()).right - 50;
    };
    EXPECT_NEAR(reach(miter_or_bevel, 20), 2 / half_sine, 0.01f);
    EXPECT_NEAR(reach(miter_or_bevel, 5), 2 * half_sine, 0.01f);
    EXPECT_NEAR(reach(mitered, 5), 2 * 5, 0.01f);
    EXPECT_NEAR(reach(round_join, 5), 2, 0.01f);
}

TEST_F(strokes, with_dashes_leave_gaps) {
    const auto line = lines({{0, 0}, {100, 0}}, D2D1_FIGURE_END_OPEN);
    const auto drawn = [&](float x, D2D1_CAP_STYLE cap, D2D1_DASH_STYLE dash, float offset = 0,
                           std::vector<float> dashes = {}) {
        return stroke_has(line.get(), {x, 0}, 5, style(cap, mitered, 10, dash, offset, dashes).get());
    };
    // Dashes and gaps of two widths.
    for (float x = 1.5f; x < 100; x += 2) {
        EXPECT_EQ(drawn(x, flat, D2D1_DASH_STYLE_DASH), std::fmod(x, 20.0f) < 10) << x;
        EXPECT_EQ(drawn(x, flat, D2D1_DASH_STYLE_DASH, 1), std::fmod(x + 5, 20.0f) < 10) << x;
        EXPECT_EQ(drawn(x, flat, D2D1_DASH_STYLE_DASH, -1), std::fmod(x + 15, 20.0f) < 10) << x;
        EXPECT_EQ(drawn(x, flat, D2D1_DASH_STYLE_CUSTOM, 0, {1, 2, 3, 4}),
                  std::fmod(x, 50.0f) < 5 || (std::fmod(x, 50.0f) > 15 && std::fmod(x, 50.0f) < 30))
            << x;
    }
    // Dots have no length: only their caps show.
    EXPECT_TRUE(drawn(11, round_cap, D2D1_DASH_STYLE_DOT));
    EXPECT_TRUE(drawn(7.6f, square, D2D1_DASH_STYLE_DOT));
    EXPECT_FALSE(drawn(7, round_cap, D2D1_DASH_STYLE_DOT));
    EXPECT_FALSE(drawn(5, flat, D2D1_DASH_STYLE_DOT));
}

TEST_F(strokes, with_dashes_go_around_corners_and_keep_their_bounds) {
    const auto corner = lines({{0, 0}, {15, 0}, {15, 40}}, D2D1_FIGURE_END_OPEN);
    const auto pen = style(flat, mitered, 10, D2D1_DASH_STYLE_CUSTOM, 0, {5, 5});
    // With a width of 2: drawn up to 10, then from 20, five beyond the corner, to 30, and from 40 to 50.
    EXPECT_TRUE(stroke_has(corner.get(), {9, 0}, 2, pen.get()));
    EXPECT_FALSE(stroke_has(corner.get(), {15, 0}, 2, pen.get()));
    EXPECT_FALSE(stroke_has(corner.get(), {15, 4}, 2, pen.get()));
    EXPECT_TRUE(stroke_has(corner.get(), {15, 6}, 2, pen.get()));
    EXPECT_FALSE(stroke_has(corner.get(), {15, 16}, 2, pen.get()));
    expect_near(widened_bounds_of(corner.get(), 2, pen.get()), {0, -1, 16, 35}, 0.01f);
}

TEST_F(strokes, can_be_widened_into_a_fill_of_the_same_area) {
    recording_sink line;
    const auto bar = lines({{0, 0}, {30, 40}}, D2D1_FIGURE_END_OPEN);
    ASSERT_EQ(bar->Widen(6, nullptr, nullptr, 0.25f, &line), S_OK);
    EXPECT_NEAR(line.signed_area(), 50 * 6, 0.1);

    recording_sink frame;
    ASSERT_EQ(rectangle(0, 0, 40, 30)->Widen(4, nullptr, nullptr, 0.25f, &frame), S_OK);
    EXPECT_NEAR(frame.signed_area(), 44 * 34 - 36 * 26, 0.1);
    EXPECT_TRUE(frame.contains({-1, -1}));
    EXPECT_FALSE(frame.contains({20, 15}));

    recording_sink ring;
    ASSERT_EQ(ellipse(0, 0, 20, 20)->Widen(4, nullptr, nullptr, 0.01f, &ring), S_OK);
    EXPECT_NEAR(ring.signed_area(), std::numbers::pi * (22 * 22 - 18 * 18), 1);
}

}  // namespace

}  // namespace completion::test
