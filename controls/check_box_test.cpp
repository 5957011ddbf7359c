// What is particular to check boxes and to radio buttons: they are as large as their label and a mark of its
// height, and the mark alone is drawn by them.

#include "controls/testing/button_look_test.h"

#include <cfloat>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using fakes::fake_label;
using scene::translation_matrix;
using scene::fakes::call_text;
using scene::fakes::same;
using scene::fakes::text_of;

class check_box_test : public fakes::button_look_test {};

TEST_F(check_box_test, answers_for_its_interfaces) {
    const auto made = ui::create_check_box(com::create_object<fake_label>().get(), rect, nullptr);
    EXPECT_TRUE(answers<IUnknown>(made));
    EXPECT_TRUE(answers<ui::ICheckBox>(made));
    EXPECT_TRUE(answers<ui::IButton>(made));
    EXPECT_TRUE(answers<ui::IControl>(made));
    EXPECT_TRUE(answers<scene::layout::IElement>(made));
    EXPECT_FALSE(answers<ui::IPushButton>(made));
    EXPECT_FALSE(answers<ui::ILabel>(made));
}

TEST_F(check_box_test, looks_in_each_state_as_the_default_style_has_it) {
    const std::string box = "rounded_rectangle(10.5 20.5 29.5 39.5 4 4)";
    const std::string mark = "rounded_rectangle(13 23 27 37 3 3)";
    for_each_look(fakes::check_box_kind, [&](look shown) {
        const bool checked = std::exchange(shown.checked, false);
        lines expected{fill_text(box, background_of(shown)), stroke_text(box, outline_of(shown))};
        if (checked) expected.push_back(fill_text(mark, black));
        expected.push_back(label_text(shown.enabled ? black : grey));
        return expected;
    });
}

TEST_F(check_box_test, is_hit_on_the_rounded_square_of_its_mark_and_on_its_label) {
    show_default(fakes::check_box_kind);
    struct {
        float x, y;
        bool hit;
    } const points[] = {
        {20, 30, true},  {12, 30, true},  {28, 30, true}, {20, 22, true},  {20, 38, true},
        {32, 30, false}, {60, 30, false}, {8, 30, false}, {20, 18, false}, {20, 42, false},
    };
    for (const bool checked : {false, true}) {
        button->set_checked(checked);
        for (const auto& [x, y, hit] : points) EXPECT_EQ(hit, node()->hit_test({x, y})) << x << ", " << y;
    }
    button->arrange({0, 0, 200, 100});
    for (const D2D_POINT_2F corner : {D2D_POINT_2F{0, 0}, {100, 0}, {0, 100}, {100, 100}})
        EXPECT_FALSE(node()->hit_test(corner)) << corner.x << ", " << corner.y;
}

TEST_F(check_box_test, click_on_its_label_counts_while_the_mouse_stands_still) {
    for (const auto& kind_of : {fakes::check_box_kind, fakes::radio_button_kind}) {
        show_default(kind_of);
        button->set_enabled(true);
        const D2D_RECT_F own = text->get_rect();
        const auto placed = text->get_node()->get_transform();
        const D2D_POINT_2F middle{placed._31 + (own.left + own.right) / 2, placed._32 + own.top + 6};
        ASSERT_FALSE(node()->hit_test(middle));
        click_at(middle);
        EXPECT_TRUE(button->is_checked()) << kind_of.name;
        while_pressed([&](const auto& moved) { moved({middle.x + 1, middle.y}); });
        press_at(middle);
        EXPECT_TRUE(button->is_checked()) << kind_of.name;
        while_pressed([&](const auto& moved) { moved({20, 30}); });
        press_at(middle);
        EXPECT_FALSE(button->is_checked()) << kind_of.name;
        // Between mark and label there is nothing.
        click_at({31, 22});
        EXPECT_FALSE(button->is_checked()) << kind_of.name;
    }
}

TEST_F(check_box_test, is_as_high_as_its_label_and_wider_by_a_mark) {
    for (const auto& kind_of : {fakes::check_box_kind, fakes::radio_button_kind}) {
        const auto own = com::create_object<fake_label>();
        own->measured = {{1, 2, 3, 4}, {10, 5}, {100, 50}, {30, 12}};
        const auto made = kind_of.make(own.get(), rect, nullptr);
        EXPECT_EQ("margin 1,2,3,4 min 24x12 max 114x12 preferred 44x12", text_of(made->measure()));
        own->measured = {{}, {}, {FLT_MAX, FLT_MAX}, {}};
        EXPECT_EQ("margin 0,0,0,0 min 2x0 max anyx0 preferred 2x0", text_of(made->measure()));
    }
}

TEST_F(check_box_test, label_stands_two_pixels_behind_the_mark_and_in_the_middle_of_its_height) {
    struct {
        D2D_RECT_F label;
        D2D_RECT_F rect;
        float x, y;
    } const cases[] = {
        {{-10, -4, 10, 4}, {10, 20, 70, 40}, 42, 30},
        {{0, 0, 20, 8}, {10, 20, 70, 40}, 32, 26},
        {{5, 6, 26, 13}, {0, 0, 100, 9}, 6, -5},
        {{-10, -4, 10, 4}, {0, 0, 0, 0}, 12, 0},
    };
    for (const auto& kind_of : {fakes::check_box_kind, fakes::radio_button_kind}) {
        for (const auto& [of, place, x, y] : cases) {
            const auto own = com::create_object<fake_label>(of);
            const auto made = kind_of.make(own.get(), place, nullptr);
            EXPECT_TRUE(same(translation_matrix(x, y), own->node->get_transform())) << call_text(of, place);
            made->arrange({});
            made->arrange(place);
            EXPECT_TRUE(same(translation_matrix(x, y), own->node->get_transform())) << call_text(of, place);
        }
    }
}

}  // namespace
}  // namespace d2d
