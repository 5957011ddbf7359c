#include "geometry_test.h"

#include <random>

namespace completion::test {

namespace {

class fill_hits : public geometry_test {};

TEST_F(fill_hits, of_an_ellipse_agree_with_its_equation) {
    const auto shape = ellipse(10, 5, 30, 12);
    for (int i = 0; i < 64; ++i) {
        const float angle = 2 * std::numbers::pi_v<float> * static_cast<float>(i) / 64;
        for (const float factor : {0.2f, 0.99f, 1.01f, 1.5f}) {
            const D2D1_POINT_2F p{10 + 30 * factor * std::cos(angle), 5 + 12 * factor * std::sin(angle)};
            EXPECT_EQ(fill_has(shape.get(), p), factor < 1) << p.x << ' ' << p.y;
        }
    }
}

TEST_F(fill_hits, of_a_rounded_rectangle_leave_out_the_corners) {
    const auto shape = rounded({0, 0, 40, 30}, 10, 8);
    for (float x = -1.9f; x < 43; x += 0.7f) {
        for (float y = -1.9f; y < 33; y += 0.7f) {
            const float over_x = std::max({10 - x, x - 30, 0.0f}) / 10;
            const float over_y = std::max({8 - y, y - 22, 0.0f}) / 8;
            const float radius = std::hypot(over_x, over_y);
            if (std::abs(radius - 1) > 0.01f) {
                EXPECT_EQ(fill_has(shape.get(), {x, y}), radius < 1) << x << ' ' << y;
            }
        }
    }
}

TEST_F(fill_hits, reach_beyond_the_edge_by_less_than_the_tolerance) {
    const auto square = rectangle(10, 10, 50, 50);
    const auto square_path = lines({{10, 10}, {50, 10}, {50, 50}, {10, 50}}, D2D1_FIGURE_END_CLOSED);
    const auto circle = ellipse(30, 30, 20, 20);
    const auto corners = rounded({10, 10, 50, 50}, 5, 5);
    for (ID2D1Geometry* shape :
         {static_cast<ID2D1Geometry*>(square.get()), static_cast<ID2D1Geometry*>(square_path.get()),
          static_cast<ID2D1Geometry*>(circle.get()), static_cast<ID2D1Geometry*>(corners.get())}) {
        for (const float tolerance : {0.25f, 1.0f}) {
            EXPECT_TRUE(fill_has(shape, {10 - 0.9f * tolerance, 30}, tolerance));
            EXPECT_FALSE(fill_has(shape, {10 - 1.1f * tolerance, 30}, tolerance));
        }
    }
}

TEST_F(fill_hits, follow_the_fill_mode_of_a_path) {
    const auto star = [&](D2D1_FILL_MODE mode) {
        return path([mode](ID2D1GeometrySink* sink) {
            sink->SetFillMode(mode);
            sink->BeginFigure({0, -50}, D2D1_FIGURE_BEGIN_FILLED);
            for (int i = 1; i < 5; ++i) {
                const float angle = 4 * std::numbers::pi_v<float> / 5 * static_cast<float>(i);
                sink->AddLine({50 * std::sin(angle), -50 * std::cos(angle)});
            }
            sink->EndFigure(D2D1_FIGURE_END_CLOSED);
        });
    };
    EXPECT_FALSE(fill_has(star(D2D1_FILL_MODE_ALTERNATE).get(), {0, 0}));
    EXPECT_TRUE(fill_has(star(D2D1_FILL_MODE_WINDING).get(), {0, 0}));
    EXPECT_TRUE(fill_has(star(D2D1_FILL_MODE_ALTERNATE).get(), {0, -40}));
}

TEST_F(fill_hits, of_a_group_follow_its_fill_mode) {
    const auto outer = ellipse(0, 0, 20, 20);
    const auto inner = rectangle(-5, -5, 5, 5);
    const auto alternating = group(D2D1_FILL_MODE_ALTERNATE, {outer.get(), inner.get()});
    EXPECT_FALSE(fill_has(alternating.get(), {0, 0}));
    EXPECT_TRUE(fill_has(alternating.get(), {10, 0}));
    EXPECT_FALSE(fill_has(alternating.get(), {21, 0}));
    EXPECT_TRUE(fill_has(group(D2D1_FILL_MODE_WINDING, {outer.get(), inner.get()}).get(), {0, 0}));
}

TEST_F(fill_hits, take_the_point_back_through_the_transform) {
    const D2D1::Matrix3x2F world = D2D1::Matrix3x2F::Scale(2, 3) * D2D1::Matrix3x2F::Translation(100, 50);
    const auto circle = ellipse(10, 10, 10, 10);
    EXPECT_TRUE(fill_has(circle.get(), {101, 80}, 0.01f, &world));
    EXPECT_FALSE(fill_has(circle.get(), {99, 80}, 0.01f, &world));
    EXPECT_TRUE(fill_has(transformed(circle.get(), world).get(), {139, 80}));
    EXPECT_FALSE(fill_has(transformed(circle.get(), world).get(), {141, 80}));
}

TEST_F(fill_hits, of_random_triangles_agree_with_the_signs_of_their_sides) {
    std::mt19937 random(20240601);
    std::uniform_real_distribution<float> anywhere(-50, 50);
    for (int round = 0; round < 200; ++round) {
        const D2D1_POINT_2F a{anywhere(random), anywhere(random)};
        const D2D1_POINT_2F b{anywhere(random), anywhere(random)};
        const D2D1_POINT_2F c{anywhere(random), anywhere(random)};
        const D2D1_POINT_2F p{anywhere(random), anywhere(random)};
        const auto side = [&](D2D1_POINT_2F from, D2D1_POINT_2F to) {
            const float length = std::hypot(to.x - from.x, to.y - from.y);
            return ((to.x - from.x) * (p.y - from.y) - (to.y - from.y) * (p.x - from.x)) / length;
        };
        const float sides[]{side(a, b), side(b, c), side(c, a)};
        if (std::abs(sides[0]) < 0.05f || std::abs(sides[1]) < 0.05f || std::abs(sides[2]) < 0.05f) {
            continue;
        }
        const bool inside = (sides[0] > 0) == (sides[1] > 0) && (sides[1] > 0) == (sides[2] > 0);
        EXPECT_EQ(fill_has(lines({a, b, c}, D2D1_FIGURE_END_CLOSED).get(), p), inside) << "round " << round;
    }
}

}  // namespace

}  // namespace completion::test
