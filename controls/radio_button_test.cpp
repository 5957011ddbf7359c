// What is particular to radio buttons: a round mark, and no knowledge of their neighbours.

#include "controls/testing/button_look_test.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using fakes::fake_label;

class radio_button_test : public fakes::button_look_test {};

TEST_F(radio_button_test, answers_for_its_interfaces) {
    const auto made = ui::create_radio_button(com::create_object<fake_label>().get(), rect, nullptr);
    EXPECT_TRUE(answers<IUnknown>(made));
    EXPECT_TRUE(answers<ui::IButton>(made));
    EXPECT_TRUE(answers<ui::IControl>(made));
    EXPECT_TRUE(answers<scene::layout::IElement>(made));
    EXPECT_FALSE(answers<ui::ICheckBox>(made));
    EXPECT_FALSE(answers<ui::IPushButton>(made));
}

TEST_F(radio_button_test, looks_in_each_state_as_the_default_style_has_it) {
    const std::string ring = "ellipse(20 30 9.5 9.5)";
    const std::string dot = "ellipse(20 30 6.5 6.5)";
    for_each_look(fakes::radio_button_kind, [&](look shown) {
        const bool checked = std::exchange(shown.checked, false);
        lines expected{fill_text(ring, background_of(shown)), stroke_text(ring, outline_of(shown))};
        if (checked) expected.push_back(fill_text(dot, black));
        expected.push_back(label_text(shown.enabled ? black : grey));
        return expected;
    });
}

TEST_F(radio_button_test, corners_of_its_mark_are_outside) {
    show_default(fakes::radio_button_kind);
    for (const bool checked : {false, true}) {
        button->set_checked(checked);
        for (const float x : {10.5f, 29.5f}) {
            for (const float y : {20.5f, 39.5f}) EXPECT_FALSE(node()->hit_test({x, y})) << x << ", " << y;
        }
        for (const D2D_POINT_2F edge_point :
             {D2D_POINT_2F{20, 30}, {11, 30}, {29, 30}, {20, 21}, {20, 39}, {26, 36}})
            EXPECT_TRUE(node()->hit_test(edge_point)) << edge_point.x << ", " << edge_point.y;
    }
}

TEST_F(radio_button_test, press_on_a_corner_of_its_mark_is_none) {
    show_default(fakes::radio_button_kind);
    button->set_enabled(true);
    forget();
    press_at({10.5f, 20.5f});
    EXPECT_EQ((lines{}), calls());
    EXPECT_FALSE(button->is_checked());
    while_pressed([&](const auto& moved) { moved({29.5f, 39.5f}); });
    press_at({20, 30});
    EXPECT_FALSE(button->is_checked());
    click_at({20, 30});
    EXPECT_TRUE(button->is_checked());
}

TEST_F(radio_button_test, click_unchecks_it_again_and_leaves_its_neighbours) {
    std::vector<com::ptr<ui::IButton>> choices;
    for (int i = 0; i < 3; ++i) {
        const auto top = static_cast<float>(25 * i);
        choices.push_back(
            ui::create_radio_button(com::create_object<fake_label>().get(), {0, top, 60, top + 20}, nullptr));
        choices.back()->set_enabled(true);
        root->add_child(choices.back()->get_node());
    }
    const auto checked = [&] {
        std::string marks;
        for (const auto& each : choices) marks += each->is_checked() ? '1' : '0';
        return marks;
    };
    click_at({10, 10});
    click_at({10, 60});
    EXPECT_EQ("101", checked());
    click_at({10, 10});
    EXPECT_EQ("001", checked());
}

TEST_F(radio_button_test, one_of_several_is_chosen_by_unchecking_the_others) {
    std::vector<com::ptr<ui::IButton>> choices;
    std::string said;
    for (int i = 0; i < 3; ++i) {
        const auto top = static_cast<float>(25 * i);
        choices.push_back(
            ui::create_radio_button(com::create_object<fake_label>().get(), {0, top, 60, top + 20}, nullptr));
        root->add_child(choices.back()->get_node());
    }
    for (std::size_t i = 0; i < choices.size(); ++i) {
        choices[i]->set_on_click([&, i](bool checked) {
            said += std::to_string(i) + (checked ? "+" : "-");
            for (std::size_t other = 0; other < choices.size(); ++other)
                choices[other]->set_checked(other == i);
        });
    }
    for (const float y : {10.0f, 35.0f, 60.0f, 60.0f}) click_at({10, y});
    EXPECT_EQ("0+1+2+2-", said);
    EXPECT_FALSE(choices[0]->is_checked());
    EXPECT_FALSE(choices[1]->is_checked());
    EXPECT_TRUE(choices[2]->is_checked());
}

}  // namespace
}  // namespace d2d
