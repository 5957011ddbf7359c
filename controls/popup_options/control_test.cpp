// What popup options are while their list is closed.

#include "com/error.h"
#include "controls/testing/answers.h"
#include "controls/testing/failure_of.h"
#include "controls/testing/popup_options_fixture.h"
#include "scene/testing/metrics_text.h"
#include "scene/testing/shown_view.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using fakes::fake_label;
using scene::fakes::same;
using scene::fakes::text_of;
using scene::fakes::thrown_by;
namespace event_type = input::mouse::event_type;

constexpr const char* frame = "frame 10.5 20.5 69.5 39.5 r 2.5:";

using popup_options_test = fakes::popup_options_fixture;

TEST_F(popup_options_test, answers_for_its_interfaces) {
    EXPECT_TRUE(answers<ui::IPopupOptions>(popup));
    EXPECT_TRUE(answers<ui::IControl>(popup));
    EXPECT_TRUE(answers<scene::layout::IElement>(popup));
    EXPECT_FALSE(answers<ui::ILabel>(popup));
    EXPECT_TRUE(same(rect, popup->get_rect()));
}

TEST_F(popup_options_test, is_made_with_a_frame_and_nothing_selected) {
    forget();
    const auto label = com::create_object<fake_label>();
    const auto made = ui::create_popup_options(rect, {{5, label}}, style.get());
    EXPECT_EQ((lines{"label_brush 1 0", frame}), calls());
    EXPECT_EQ(style->brush, label->brush);
    EXPECT_EQ(nullptr, label->node->get_parent());
    EXPECT_EQ(std::nullopt, made->get_selected());
    EXPECT_TRUE(same({10.5f, 20.5f, 69.5f, 39.5f}, made->get_node()->get_bounds(true)));
    EXPECT_NE(nullptr, made->get_node()->get_clip_geometry());
}

TEST_F(popup_options_test, a_style_of_another_kind_is_refused) {
    EXPECT_EQ(E_NOINTERFACE, fakes::failure_of([&] {
                  static_cast<void>(ui::create_popup_options(rect, {}, labels[0].get()));
              }));
}

TEST_F(popup_options_test, without_options_has_margins_alone) {
    const auto made = ui::create_popup_options(rect, {}, style.get());
    EXPECT_EQ("margin 4,4,0,0 min 0x0 max 0x0 preferred 0x0", text_of(made->measure()));
}

TEST_F(popup_options_test, is_as_large_as_the_largest_label_and_its_frame) {
    labels[0]->measured = {{1, 2, 3, 4}, {5, 30}, {50, 60}, {10, 35}};
    EXPECT_EQ("margin 1,2,3,4 min 11x36 max anyx66 preferred 16x41", text_of(popup->measure()));
    labels[1]->measured = {{9, 9, 9, 9}, {7, 20}, {90, 40}, {8, 50}};
    labels[2]->measured = {{}, {6, 10}, {20, 70}, {12, 1}};
    EXPECT_EQ("margin 1,2,3,4 min 13x36 max anyx76 preferred 18x56", text_of(popup->measure()));
    labels[2]->measured.max_size.height = scene::layout::unlimited;
    EXPECT_EQ(scene::layout::unlimited, popup->measure().max_size.height);
}

TEST_F(popup_options_test, shows_the_selected_label_in_the_middle) {
    popup->set_on_change(change_log());
    popup->set_selected(2);
    EXPECT_EQ(2, popup->get_selected());
    EXPECT_TRUE(shows(1, {40, 30}));
    popup->set_selected(3);
    EXPECT_EQ(nullptr, labels[1]->node->get_parent());
    EXPECT_TRUE(shows(2, {40, 30}));
    forget();
    popup->set_selected(3);
    EXPECT_EQ(lines{}, calls()) << "nothing is touched";
    popup->set_selected(std::nullopt);
    EXPECT_EQ(std::nullopt, popup->get_selected());
    EXPECT_TRUE(shows_nothing());
    EXPECT_EQ("", drawn()) << "nobody is told";
}

TEST_F(popup_options_test, an_id_without_option_shows_nothing) {
    popup->set_selected(1);
    popup->set_selected(77);
    EXPECT_EQ(77, popup->get_selected());
    EXPECT_TRUE(shows_nothing());
    popup->arrange(rect);
    popup->set_selected(1);
    EXPECT_TRUE(shows(0, {40, 30}));
}

TEST_F(popup_options_test, arranging_moves_frame_and_label) {
    popup->set_selected(1);
    const auto former = node()->get_clip_geometry();
    forget();
    popup->arrange({0, 0, 31, 20});
    EXPECT_EQ("frame 0.5 0.5 30.5 19.5 r 2.5:", drawn());
    EXPECT_TRUE(shows(0, {15.5f, 10}));
    EXPECT_TRUE(same({0, 0, 31, 20}, popup->get_rect()));
    EXPECT_NE(former, node()->get_clip_geometry());
    popup->arrange({-31, -20, 0, 0});
    EXPECT_TRUE(shows(0, {-15.5f, -10})) << "the opposite of where it was";
}

TEST_F(popup_options_test, frame_lights_up_under_the_mouse) {
    popup->set_selected(1);
    move(beside_label.x, beside_label.y);
    EXPECT_EQ(std::string(frame) + " hot", drawn());
    move(on_label.x, on_label.y);
    EXPECT_EQ("", drawn()) << "on the label it is in the control still";
    move(outside.x, outside.y);
    EXPECT_EQ(frame, drawn());
}

TEST_F(popup_options_test, frame_shows_the_focus) {
    node()->set_focus();
    EXPECT_EQ(std::string(frame) + " focused", drawn());
    edge->on_focus_lost();
    EXPECT_EQ(frame, drawn());
}

TEST_F(popup_options_test, only_the_left_button_beside_the_label_opens) {
    popup->set_selected(1);
    for (const auto button :
         {input::mouse::button::right, input::mouse::button::middle, input::mouse::button::extended}) {
        root->set_focus();
        press_at(beside_label, button);
        EXPECT_FALSE(is_open());
        EXPECT_TRUE(node()->has_focus(false));
    }
    root->set_focus();
    press_at(on_label);
    EXPECT_FALSE(is_open());
    EXPECT_TRUE(node()->has_focus(false));
    for (const auto type : {event_type::button_up, event_type::double_click, event_type::wheel}) {
        edge->on_mouse_event({type, input::mouse::button::left, 0, beside_label, 0});
        EXPECT_FALSE(is_open());
    }
    press_at(beside_label);
    EXPECT_TRUE(is_open());
}

TEST_F(popup_options_test, a_press_on_what_has_just_left_its_view_fails_for_want_of_a_focus) {
    root->add_mouse_handler([this](scene::INode*, int depth, input::mouse::event event) {
        if (depth < 0 && event.type == event_type::button_down) root->remove_child(node());
        return false;
    });
    EXPECT_EQ("not expected", thrown_by<std::runtime_error>([&] { press_at(beside_label); }));
    EXPECT_FALSE(is_open());
    root->add_mouse_handler(nullptr);
}

TEST_F(popup_options_test, a_scene_that_cannot_float_leaves_it_closed) {
    scene::fakes::shown_view poor(nullptr);
    popup->set_selected(1);
    root->remove_child(node());
    poor->set_root(node());
    forget();
    const auto press = [&] {
        poor->on_mouse_event({event_type::button_down, input::mouse::button::left, 0, beside_label, 0});
    };
    EXPECT_THROW(press(), com::error);
    EXPECT_THROW(press(), com::error) << "as at first";
    EXPECT_TRUE(shows(0, {40, 30}));
    EXPECT_EQ(1, popup->get_selected());
    EXPECT_EQ(style->brush, labels[1]->brush);
    EXPECT_TRUE(same({10.5f, 20.5f, 69.5f, 39.5f}, node()->get_bounds(false))) << "the frame is back";
    poor->set_root(nullptr);
}

}  // namespace
}  // namespace d2d
