// Which points a recorded command covers.

#include "com/error.h"
#include "scene/testing/tree_test.h"

#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::call_text;
using fakes::fake_geometry;
using fakes::test_bitmap;

/// Nodes with one command each, asked for points.
class command_hit : public fakes::tree_test {
protected:
    struct point_case {
        float x, y;
        bool hit;
    };
    void check(std::initializer_list<point_case> cases) {
        for (const auto& [x, y, hit] : cases) EXPECT_EQ(hit, root->hit_test({x, y})) << x << ", " << y;
    }
    com::ptr<IDrawingContext> draw_anew() {
        root->draw(false)->commit();
        return root->draw(true);
    }
    HRESULT failure_at(D2D_POINT_2F point) {
        try {
            root->hit_test(point);
        } catch (const com::error& failure) {
            return failure.hresult;
        }
        return S_OK;
    }
};

TEST_F(command_hit, bitmap_covers_its_rectangle_without_the_right_and_bottom_edges) {
    const auto bitmap = com::create_object<test_bitmap>(D2D_SIZE_U{4, 3}, 0u);
    draw_anew()->draw_bitmap(10, 20, bitmap.get());
    check({{10, 20, true},
           {13.75f, 22.75f, true},
           {14, 21, false},
           {12, 23, false},
           {9.75f, 21, false},
           {12, 19.75f, false}});
}

TEST_F(command_hit, fill_covers_what_its_geometry_contains_within_a_pixel) {
    fake_geometry* const shape = geometry({0, 0, 10, 10});
    shape->stroked = true;
    shape->widened_bounds = {-5, -5, 15, 15};
    draw_anew()->fill_geometry(shape, make_brush(red).get());
    shape->got_matrix = true;
    check({{5, 5, true}, {12, 5, false}});
    EXPECT_FALSE(shape->got_matrix);
    EXPECT_EQ(1.0f, shape->got_tolerance);
    shape->result = E_FAIL;
    EXPECT_EQ(E_FAIL, failure_at({5, 5}));
}

TEST_F(command_hit, stroke_covers_what_its_line_contains_within_a_pixel) {
    const auto style = factory::create_stroke_style(D2D1_DASH_STYLE_DASH, D2D1_CAP_STYLE_ROUND,
                                                    D2D1_LINE_JOIN_BEVEL, 1.0f, 0.0f);
    fake_geometry* const shape = geometry({0, 0, 10, 10});
    shape->stroked = true;
    shape->widened_bounds = {8, -2, 12, 12};
    draw_anew()->draw_geometry(shape, make_brush(red).get(), 4.0f, style.get());
    shape->got_matrix = true;
    shape->got_width = 0;
    shape->got_style = nullptr;
    check({{11, 5, true}, {5, 5, false}});
    EXPECT_FALSE(shape->got_matrix);
    EXPECT_EQ(4.0f, shape->got_width);
    EXPECT_EQ(style.get(), shape->got_style);
    EXPECT_EQ(1.0f, shape->got_tolerance);
    shape->result = E_FAIL;
    EXPECT_EQ(E_FAIL, failure_at({11, 5}));
    root->clear();
}

TEST_F(command_hit, line_around_a_rectangle_leaves_its_middle_open) {
    const auto rectangle = factory::create_rectangle_geometry({10, 10, 50, 50});
    draw_anew()->draw_geometry(rectangle.get(), make_brush(red).get(), 4.0f, nullptr);
    check({{10, 30, true}, {8.5f, 30, true}, {30, 51.5f, true}, {30, 30, false}, {5, 30, false}});
}

TEST_F(command_hit, text_covers_its_characters_and_what_lies_behind_them) {
    const auto format = factory::create_text_format(L"Tahoma", 20.0f);
    const auto layout = factory::create_text_layout(L"moss", format.get(), 200, 100);
    DWRITE_TEXT_METRICS text{};
    com::check(layout->GetMetrics(&text));
    draw_anew()->draw_text_layout(300, 40, layout.get(), make_brush(red).get(), D2D1_DRAW_TEXT_OPTIONS_NONE);
    const float middle = 40 + text.height / 2;
    check({{301, middle, true},
           {300 + text.width - 1, middle, true},
           {299, middle, false},
           {1, text.height / 2, false}});
    // Kept: a point past the end of a line is at the trailing side of its last character, and that counts.
    check({{300 + text.width + 50, middle, true}});
}

TEST_F(command_hit, visual_decides_for_itself) {
    const auto visual = make_visual("a", {0, 0, 10, 10});
    std::string asked;
    visual->on_hit_test = [&](float x, float y, float tolerance) {
        asked += call_text(x, y, tolerance) + ";";
        return x > 50;
    };
    draw_anew()->draw_visual(visual.get());
    check({{60, 5.5f, true}, {5, 5, false}});
    EXPECT_EQ("60 5.5 1;5 5 1;", asked);
}

TEST_F(command_hit, first_to_cover_a_point_decides_with_the_foreground_ahead) {
    std::string asked;
    const auto make = [&](std::string name, float from) {
        auto visual = make_visual(name, {0, 0, 10, 10});
        visual->on_hit_test = [&asked, name, from](float x, float, float) {
            asked += name;
            return x >= from;
        };
        return visual;
    };
    {
        const auto context = draw_anew();
        context->draw_visual(make("a", 1).get());
        context->draw_visual(make("b", 0).get());
        context->foreground();
        context->draw_visual(make("c", 3).get());
        context->draw_visual(make("d", 2).get());
    }
    const auto order = [&](float x) {
        const bool hit = root->hit_test({x, 0});
        return std::exchange(asked, {}) + (hit ? "" : " miss");
    };
    EXPECT_EQ("c", order(3));
    EXPECT_EQ("cd", order(2));
    EXPECT_EQ("cda", order(1));
    EXPECT_EQ("cdab", order(0));
    EXPECT_EQ("cdab miss", order(-1));
}

}  // namespace
}  // namespace d2d::scene
