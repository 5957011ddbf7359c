// What is particular to push buttons: their margin, what they answer to, and their look.

#include "controls/testing/button_look_test.h"
#include "d2d/ui/ITextLabel.h"

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

class push_button_test : public fakes::button_look_test {
protected:
    static com::ptr<ui::IPushButton> make(ui::ILabel* of, bool latching = false) {
        return ui::create_push_button(of, rect, latching, nullptr);
    }
};

TEST_F(push_button_test, answers_for_its_interfaces_but_not_as_a_plain_button) {
    for (const bool latching : {false, true}) {
        const auto made = make(com::create_object<fake_label>().get(), latching);
        EXPECT_TRUE(answers<IUnknown>(made));
        EXPECT_TRUE(answers<ui::IPushButton>(made));
        EXPECT_TRUE(answers<ui::IControl>(made));
        EXPECT_TRUE(answers<scene::layout::IElement>(made));
        EXPECT_FALSE(answers<ui::IButton>(made));
        EXPECT_FALSE(answers<ui::ICheckBox>(made));
        EXPECT_FALSE(answers<ui::ILabel>(made));
        EXPECT_FALSE(answers<scene::INode>(made));
        ui::IButton* const plain = made.get();
        EXPECT_EQ(static_cast<IUnknown*>(plain), com::ptr<IUnknown>(made.get()).get());
    }
}

TEST_F(push_button_test, is_larger_than_its_label_by_its_margin_and_its_frame) {
    const auto own = com::create_object<fake_label>();
    own->measured = {{1, 2, 3, 4}, {10, 5}, {100, 50}, {30, 12}};
    const auto made = make(own.get());
    EXPECT_EQ("margin 1,2,3,4 min 16x9 max anyxany preferred 36x16", text_of(made->measure()));
    made->set_margin({10, 20, 30, 40});
    EXPECT_EQ("margin 1,2,3,4 min 52x67 max anyxany preferred 72x74", text_of(made->measure()));
    made->set_margin({});
    EXPECT_EQ("margin 1,2,3,4 min 12x7 max anyxany preferred 32x14", text_of(made->measure()));
    own->measured = {};
    EXPECT_EQ("margin 0,0,0,0 min 2x2 max anyxany preferred 2x2", text_of(made->measure()));
    own->measured.min_size.width = FLT_MAX;  // stays as it is: FLT_MAX has room for a few pixels
    EXPECT_EQ(FLT_MAX, made->measure().min_size.width);
}

TEST_F(push_button_test, measuring_moves_and_draws_nothing) {
    show_button(fakes::push_kind);
    static_cast<void>(button->measure());
    EXPECT_EQ((lines{}), calls());
}

TEST_F(push_button_test, margin_waits_for_the_next_arrangement) {
    show_button(fakes::push_kind);
    auto& push = static_cast<ui::IPushButton&>(*button);
    push.set_margin({10, 5, 20, 7});
    EXPECT_EQ((lines{}), calls());
    button->set_enabled(true);
    EXPECT_TRUE(same(translation_matrix(12, 21), label->node->get_transform()));
    forget();
    button->arrange(rect);
    const auto said = calls();
    ASSERT_FALSE(said.empty());
    EXPECT_EQ("place_label 20 25 50 33", said.front());
    EXPECT_TRUE(same(translation_matrix(20, 25), label->node->get_transform()));
    EXPECT_TRUE(same(rect, button->get_rect()));
}

TEST_F(push_button_test, centres_its_label_between_the_margins) {
    struct {
        D2D_RECT_F label;
        D2D_RECT_F margin;
        float x, y;
    } const cases[] = {
        {{-10, -4, 10, 4}, {2, 1, 2, 1}, 40, 30},
        {{-10, -4, 10, 4}, {12, 1, 2, 1}, 45, 30},
        {{-10, -4, 10, 4}, {2, 1, 2, 5}, 40, 28},
        {{0, 0, 20, 8}, {2, 1, 2, 1}, 30, 26},
        {{5, 6, 26, 13}, {2, 1, 2, 1}, 24.5, 20.5},
        {{-50, -40, 50, 40}, {2, 1, 2, 1}, 40, 30},
        {{}, {0, 0, 0, 0}, 40, 30},
    };
    for (const auto& [of, margin, x, y] : cases) {
        const auto own = com::create_object<fake_label>(of);
        const auto made = make(own.get());
        made->set_margin(margin);
        made->arrange(rect);
        EXPECT_TRUE(same(translation_matrix(x, y), own->node->get_transform())) << call_text(of, margin);
    }
}

TEST_F(push_button_test, looks_in_each_state_as_the_default_style_has_it) {
    const std::string frame = "rounded_rectangle(10.5 20.5 69.5 39.5 4 4)";
    for_each_look(fakes::push_kind, [&](const look& shown) {
        lines expected{fill_text(frame, background_of(shown)), stroke_text(frame, outline_of(shown))};
        const bool light = shown.enabled && (shown.down || (shown.checked && shown.latching));
        expected.push_back(label_text(!shown.enabled ? grey : light ? white : black));
        return expected;
    });
}

TEST_F(push_button_test, latched_looks_in_each_state_as_the_default_style_has_it) {
    const std::string frame = "rounded_rectangle(10.5 20.5 69.5 39.5 4 4)";
    for_each_look(fakes::latching_kind, [&](const look& shown) {
        const char* const color = !shown.enabled ? grey : shown.down || shown.checked ? white : black;
        return lines{fill_text(frame, background_of(shown)), stroke_text(frame, outline_of(shown)),
                     label_text(color)};
    });
}

TEST_F(push_button_test, is_hit_on_its_rounded_frame_alone) {
    show_default(fakes::push_kind);
    struct {
        float x, y;
        bool hit;
    } const points[] = {
        {40, 30, true},  {11.5, 30, true}, {68.5, 30, true}, {40, 21.5, true}, {40, 38.5, true},
        {13, 23, true},  {67, 37, true},   {8, 30, false},   {72, 30, false},  {40, 18, false},
        {40, 42, false}, {9, 19, false},   {71, 41, false},  {90, 80, false},
    };
    for (const auto& [x, y, hit] : points) EXPECT_EQ(hit, node()->hit_test({x, y})) << x << ", " << y;
}

TEST_F(push_button_test, corners_of_its_rectangle_are_outside) {
    show_default(fakes::push_kind);
    button->arrange({0, 0, 100, 100});
    for (const D2D_POINT_2F corner : {D2D_POINT_2F{0, 0}, {100, 0}, {0, 100}, {100, 100}})
        EXPECT_FALSE(node()->hit_test(corner)) << corner.x << ", " << corner.y;
}

}  // namespace
}  // namespace d2d
