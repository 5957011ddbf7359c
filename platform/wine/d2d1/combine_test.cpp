#include "geometry_test.h"

#include <array>
#include <random>

namespace completion::test {

namespace {

constexpr std::array modes{D2D1_COMBINE_MODE_UNION, D2D1_COMBINE_MODE_INTERSECT, D2D1_COMBINE_MODE_XOR,
                           D2D1_COMBINE_MODE_EXCLUDE};

bool expected_of(D2D1_COMBINE_MODE mode, bool in_first, bool in_second) {
    switch (mode) {
        case D2D1_COMBINE_MODE_UNION:
            return in_first || in_second;
        case D2D1_COMBINE_MODE_INTERSECT:
            return in_first && in_second;
        case D2D1_COMBINE_MODE_XOR:
            return in_first != in_second;
        default:
            return in_first && !in_second;
    }
}

class combinations : public geometry_test {
protected:
    /// Through a path, as clients do; what it then says of itself, in chords.
    [[nodiscard]] recording_sink combined(ID2D1Geometry* first, ID2D1Geometry* second, D2D1_COMBINE_MODE mode,
                                          float tolerance = 0.01f,
                                          const D2D1_MATRIX_3X2_F* transform = nullptr) const {
        recording_sink result;
        const auto shape = path([&](ID2D1GeometrySink* sink) {
            EXPECT_EQ(first->CombineWithGeometry(second, mode, transform, tolerance, sink), S_OK);
        });
        EXPECT_EQ(shape->Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION_LINES, nullptr, tolerance, &result),
                  S_OK);
        return result;
    }

    [[nodiscard]] double area(ID2D1Geometry* first, ID2D1Geometry* second, D2D1_COMBINE_MODE mode) const {
        return combined(first, second, mode).signed_area();
    }

    void expect_algebra(ID2D1Geometry* first, ID2D1Geometry* second, std::mt19937& random) const {
        std::array<recording_sink, 4> results;
        for (std::size_t i = 0; i < modes.size(); ++i) {
            results[i] = combined(first, second, modes[i]);
        }
        FLOAT areas[2]{};
        ASSERT_EQ(first->ComputeArea(nullptr, 0.01f, &areas[0]), S_OK);
        ASSERT_EQ(second->ComputeArea(nullptr, 0.01f, &areas[1]), S_OK);
        const double either = results[0].signed_area();
        const double both = results[1].signed_area();
        EXPECT_NEAR(either + both, double{areas[0]} + double{areas[1]}, 0.5);
        EXPECT_NEAR(results[2].signed_area(), either - both, 0.5);
        EXPECT_NEAR(results[3].signed_area(), double{areas[0]} - both, 0.5);

        std::uniform_real_distribution<float> anywhere(-60, 60);
        for (int i = 0; i < 40; ++i) {
            const D2D1_POINT_2F p{anywhere(random), anywhere(random)};
            if (stroke_has(first, p, 0.2f) || stroke_has(second, p, 0.2f)) {
                continue;
            }
            for (std::size_t mode = 0; mode < modes.size(); ++mode) {
                EXPECT_EQ(results[mode].contains(p),
                          expected_of(modes[mode], fill_has(first, p), fill_has(second, p)))
                    << "mode " << mode << " at " << p.x << ' ' << p.y;
            }
        }
    }
};

TEST_F(combinations, of_two_circles_make_a_lens) {
    const auto left = ellipse(0, 0, 20, 20);
    const auto right = ellipse(20, 0, 20, 20);
    const double lens = 2 * 400 * std::acos(0.5) - 10 * std::sqrt(4 * 400.0 - 400);
    const double disc = 400 * std::numbers::pi;
    EXPECT_NEAR(area(left.get(), right.get(), D2D1_COMBINE_MODE_INTERSECT), lens, 1);
    EXPECT_NEAR(area(left.get(), right.get(), D2D1_COMBINE_MODE_UNION), 2 * disc - lens, 1);
    EXPECT_NEAR(area(left.get(), right.get(), D2D1_COMBINE_MODE_EXCLUDE), disc - lens, 1);
    EXPECT_NEAR(area(left.get(), right.get(), D2D1_COMBINE_MODE_XOR), 2 * (disc - lens), 1);
}

TEST_F(combinations, of_rectangles_are_exact) {
    const auto a = rectangle(0, 0, 40, 30);
    const auto b = rectangle(10, -10, 60, 12.5f);
    EXPECT_NEAR(area(a.get(), b.get(), D2D1_COMBINE_MODE_INTERSECT), 30 * 12.5, 0.01);
    EXPECT_NEAR(area(a.get(), b.get(), D2D1_COMBINE_MODE_UNION), 1200 + 50 * 22.5 - 30 * 12.5, 0.01);
    EXPECT_NEAR(area(a.get(), b.get(), D2D1_COMBINE_MODE_EXCLUDE), 1200 - 30 * 12.5, 0.01);
}

TEST_F(combinations, of_a_rectangle_and_a_circle_cut_a_segment_off) {
    const double half_disc = std::numbers::pi * 400 / 2;
    EXPECT_NEAR(
        area(rectangle(0, -50, 50, 50).get(), ellipse(0, 0, 20, 20).get(), D2D1_COMBINE_MODE_INTERSECT),
        half_disc, 1);
}

TEST_F(combinations, keep_the_bounds_of_a_cell_of_a_rounded_strip) {
    const auto strip = rounded({0.5f, 0.5f, 119.5f, 29.5f}, 5, 5);
    const auto bounds = [&](float left, float right) {
        const auto cell = rectangle(left, -10, right, 40);
        const auto shape = path([&](ID2D1GeometrySink* sink) {
            EXPECT_EQ(
                cell->CombineWithGeometry(strip.get(), D2D1_COMBINE_MODE_INTERSECT, nullptr, 0.25f, sink),
                S_OK);
        });
        return bounds_of(shape.get());
    };
    expect_near(bounds(-10, 40), {0.5f, 0.5f, 40, 29.5f}, 1e-4f);
    expect_near(bounds(40, 80), {40, 0.5f, 80, 29.5f}, 1e-4f);
    expect_near(bounds(80, 130), {80, 0.5f, 119.5f, 29.5f}, 1e-4f);
}

TEST_F(combinations, of_equal_touching_and_distant_shapes_hold) {
    const auto a = rectangle(0, 0, 10, 10);
    const auto same = rectangle(0, 0, 10, 10);
    const auto beside = rectangle(10, 0, 20, 10);
    const auto away = rectangle(30, 0, 40, 10);
    EXPECT_NEAR(area(a.get(), same.get(), D2D1_COMBINE_MODE_UNION), 100, 1e-3);
    EXPECT_NEAR(area(a.get(), same.get(), D2D1_COMBINE_MODE_INTERSECT), 100, 1e-3);
    EXPECT_EQ(combined(a.get(), same.get(), D2D1_COMBINE_MODE_XOR).figures.size(), 0u);
    EXPECT_EQ(combined(a.get(), same.get(), D2D1_COMBINE_MODE_EXCLUDE).figures.size(), 0u);
    EXPECT_EQ(combined(a.get(), beside.get(), D2D1_COMBINE_MODE_UNION).figures.size(), 1u);
    EXPECT_NEAR(area(a.get(), beside.get(), D2D1_COMBINE_MODE_UNION), 200, 1e-3);
    EXPECT_EQ(combined(a.get(), beside.get(), D2D1_COMBINE_MODE_INTERSECT).figures.size(), 0u);
    EXPECT_EQ(combined(a.get(), away.get(), D2D1_COMBINE_MODE_UNION).figures.size(), 2u);
}

TEST_F(combinations, apply_the_transform_to_the_second_geometry_alone) {
    const D2D1::Matrix3x2F moved = D2D1::Matrix3x2F::Translation(5, 5);
    const auto a = rectangle(0, 0, 10, 10);
    const auto result = combined(a.get(), a.get(), D2D1_COMBINE_MODE_INTERSECT, 0.01f, &moved);
    EXPECT_NEAR(result.signed_area(), 25, 1e-3);
    EXPECT_TRUE(result.contains({9, 9}));
}

TEST_F(combinations, leave_a_hole_where_the_second_lies_within_the_first) {
    const auto result =
        combined(rectangle(-20, -20, 20, 20).get(), ellipse(0, 0, 5, 5).get(), D2D1_COMBINE_MODE_EXCLUDE);
    EXPECT_EQ(result.figures.size(), 2u);
    EXPECT_FALSE(result.contains({0, 0}));
    EXPECT_TRUE(result.contains({10, 10}));
}

TEST_F(combinations, of_random_ellipses_and_rounded_rectangles_obey_the_algebra_of_sets) {
    constexpr unsigned seed = 7;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> place(-30, 30);
    std::uniform_real_distribution<float> size(5, 30);
    for (int round = 0; round < 25; ++round) {
        const auto first = ellipse(place(random), place(random), size(random), size(random));
        const float left = place(random);
        const float top = place(random);
        const auto second =
            rounded({left, top, left + size(random), top + size(random)}, size(random) / 4, size(random) / 4);
        expect_algebra(first.get(), second.get(), random);
    }
}

TEST_F(combinations, of_random_self_crossing_paths_obey_the_algebra_of_sets) {
    constexpr unsigned seed = 11;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    // Whole numbers make points meet edges and edges lie on each other.
    std::uniform_int_distribution<int> place(-6, 6);
    const auto polygon = [&] {
        std::vector<D2D1_POINT_2F> points;
        for (int i = 0; i < 6; ++i) {
            points.push_back({static_cast<float>(place(random)) * 8, static_cast<float>(place(random)) * 8});
        }
        return points;
    };
    for (int round = 0; round < 40; ++round) {
        const auto first = lines(polygon(), D2D1_FIGURE_END_CLOSED);
        const auto second = lines(polygon(), D2D1_FIGURE_END_CLOSED);
        expect_algebra(first.get(), second.get(), random);
    }
}

TEST_F(combinations, tell_how_two_geometries_lie) {
    const auto relation = [](ID2D1Geometry* a, ID2D1Geometry* b) {
        D2D1_GEOMETRY_RELATION result = D2D1_GEOMETRY_RELATION_UNKNOWN;
        EXPECT_EQ(a->CompareWithGeometry(b, nullptr, 0.25f, &result), S_OK);
        return result;
    };
    const auto large = ellipse(0, 0, 30, 30);
    const auto small = rectangle(-5, -5, 5, 5);
    const auto crossing = rectangle(20, -5, 60, 5);
    const auto away = rectangle(70, 0, 80, 10);
    EXPECT_EQ(relation(large.get(), small.get()), D2D1_GEOMETRY_RELATION_CONTAINS);
    EXPECT_EQ(relation(small.get(), large.get()), D2D1_GEOMETRY_RELATION_IS_CONTAINED);
    EXPECT_EQ(relation(large.get(), crossing.get()), D2D1_GEOMETRY_RELATION_OVERLAP);
    EXPECT_EQ(relation(large.get(), away.get()), D2D1_GEOMETRY_RELATION_DISJOINT);
}

TEST_F(combinations, know_areas_lengths_and_points_along) {
    FLOAT value = 0;
    ASSERT_EQ(ellipse(0, 0, 20, 10)->ComputeArea(nullptr, 0.01f, &value), S_OK);
    EXPECT_NEAR(value, 200 * std::numbers::pi, 0.2);
    ASSERT_EQ(ellipse(0, 0, 20, 20)->ComputeLength(nullptr, 0.01f, &value), S_OK);
    EXPECT_NEAR(value, 40 * std::numbers::pi, 0.1);
    const auto line = lines({{0, 0}, {30, 0}, {30, 40}}, D2D1_FIGURE_END_OPEN);
    D2D1_POINT_2F p{};
    D2D1_POINT_2F tangent{};
    ASSERT_EQ(line->ComputePointAtLength(50, nullptr, 0.01f, &p, &tangent), S_OK);
    EXPECT_NEAR(p.x, 30, 1e-4);
    EXPECT_NEAR(p.y, 20, 1e-4);
    EXPECT_NEAR(tangent.x, 0, 1e-5);
    EXPECT_NEAR(tangent.y, 1, 1e-5);
}

}  // namespace

}  // namespace completion::test
