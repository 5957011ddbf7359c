// The open list of popup options: its rows, the drag that chooses, and the ways in which it ends.

#include "controls/popup_options/option_list.h"
#include "controls/testing/popup_options_fixture.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::references;
using scene::fakes::same;
using scene::fakes::thrown_by;
namespace event_type = input::mouse::event_type;

const std::string frame = "frame 10.5 20.5 69.5 39.5 r 2.5:";
const std::string row = "option 0 0 58 18 r 2:";

class option_list_test : public fakes::popup_options_fixture {
protected:
    using moved_function = scene::INode::drag_function;

    void SetUp() override {
        popup_options_fixture::SetUp();
        popup->set_selected(2);
        popup->set_on_change(change_log());
        forget();
    }
    [[nodiscard]] com::ptr<scene::INode> row_node(std::size_t index) const {
        return labels[index]->node->get_parent();
    }
    /// Whether the control is there: it is the only one that holds the style beside the test and its list.
    [[nodiscard]] bool control_is_gone() const { return references(style.get()) == 1; }
};

TEST_F(option_list_test, opens_above_the_control_with_a_row_for_each_option) {
    labels[2]->brush = nullptr;  // a client has chosen another one
    press_at(beside_label);
    ASSERT_TRUE(is_open());
    EXPECT_EQ(frame + " focused, frame 10.5 20.5 69.5 75.5 r 2.5: focused, " + row + ", " + row + ", " + row,
              drawn());
    EXPECT_TRUE(same({}, node()->get_bounds(true))) << "the control draws nothing";
    for (std::size_t i = 0; i < 3; ++i) {
        const auto at = row_node(i);
        ASSERT_NE(nullptr, at);
        EXPECT_TRUE(
            same(scene::translation_matrix(11, 21 + 18 * static_cast<float>(i)), at->get_transform()));
        EXPECT_TRUE(same(scene::translation_matrix(29, 9), labels[i]->node->get_transform()));
        EXPECT_TRUE(same({0, 0, 58, 18}, at->get_bounds(false)));
        EXPECT_EQ(style->brush, labels[i]->brush);
    }
    EXPECT_EQ(lines{"request_focus"}, service.site.take_calls());
}

TEST_F(option_list_test, the_height_of_labels_is_whole) {
    popup->arrange({10, 20, 70, 41});
    press_at(beside_label);
    EXPECT_TRUE(same(scene::translation_matrix(29, 9), labels[0]->node->get_transform()));
    EXPECT_TRUE(same(scene::translation_matrix(11, 40), row_node(1)->get_transform()));
}

TEST_F(option_list_test, without_options_is_a_frame) {
    const auto empty = ui::create_popup_options(rect, {}, style.get());
    root->add_child(empty->get_node());
    forget();
    press_at(beside_label);
    ASSERT_TRUE(is_open());
    EXPECT_EQ(frame + " focused, frame 10.5 20.5 69.5 21.5 r 2.5: focused", drawn());
    service.floated->on_focus_gained();
    press_in_list({20, 21}, nullptr);
    EXPECT_FALSE(is_open());
    root->remove_child(empty->get_node());
}

TEST_F(option_list_test, a_second_press_on_the_control_changes_nothing) {
    open();
    press_at(beside_label);
    EXPECT_EQ("", drawn());
    EXPECT_TRUE(is_open());
}

TEST_F(option_list_test, release_chooses_the_row_under_the_pointer) {
    open();
    press_in_list(on_row(0), [&](const moved_function& moved) {
        EXPECT_EQ(style->hot_brush, labels[0]->brush);
        EXPECT_EQ(row + " down", drawn());
        EXPECT_FALSE(moved(on_row(0)));
        EXPECT_EQ("", drawn());
        EXPECT_FALSE(moved(on_row(2)));
        EXPECT_EQ(row + ", " + row + " down", drawn());
        EXPECT_EQ(style->brush, labels[0]->brush);
        EXPECT_EQ(style->hot_brush, labels[2]->brush);
    });
    const lines asked = service.site.take_calls();
    EXPECT_EQ(1, std::count(asked.begin(), asked.end(), "drag_loop 20 30 0 1 0 0 1 0 0"));
    EXPECT_FALSE(is_open());
    EXPECT_EQ("change 3, " + frame + " focused", drawn());
    EXPECT_EQ(3, popup->get_selected());
    EXPECT_EQ(style->brush, labels[2]->brush);
    EXPECT_TRUE(shows(2, {40, 30}));
    EXPECT_EQ(nullptr, labels[0]->node->get_parent());
    EXPECT_EQ(nullptr, labels[1]->node->get_parent());
}

TEST_F(option_list_test, a_press_on_a_label_chooses_its_row) {
    open();
    press_in_list({40, 30}, nullptr);
    EXPECT_EQ(1, popup->get_selected());
}

TEST_F(option_list_test, where_two_rows_touch_the_first_is_chosen) {
    open();
    press_in_list({20, 39.5f}, nullptr);  // within a pixel of both
    EXPECT_EQ(1, popup->get_selected());
    open();
    press_in_list(on_row(0), [&](const moved_function& moved) {
        moved({20, 39.5f});
        EXPECT_EQ(style->hot_brush, labels[0]->brush);
        EXPECT_EQ(style->brush, labels[1]->brush);
        moved({20, 40.5f});
        EXPECT_EQ(style->brush, labels[0]->brush);
        EXPECT_EQ(style->hot_brush, labels[1]->brush);
    });
    EXPECT_EQ(2, popup->get_selected());
}

TEST_F(option_list_test, release_beside_the_rows_keeps_the_selection) {
    open();
    press_in_list(on_row(0), [&](const moved_function& moved) { moved(on_row(3)); });
    EXPECT_FALSE(is_open());
    EXPECT_EQ(2, popup->get_selected());
    EXPECT_TRUE(shows(1, {40, 30}));
    EXPECT_EQ(style->brush, labels[0]->brush);
    EXPECT_EQ(std::string::npos, drawn().find("change"));
}

TEST_F(option_list_test, choosing_what_is_selected_tells_nobody) {
    open();
    choose(1);
    EXPECT_EQ(row + " down, " + frame + " focused", drawn());
    EXPECT_EQ(2, popup->get_selected());
    EXPECT_TRUE(shows(1, {40, 30}));
}

TEST_F(option_list_test, other_buttons_and_events_leave_it_open) {
    open();
    press_in_list(on_row(0), nullptr, input::mouse::button::right);
    list_mouse(event_type::button_up, on_row(0));
    list_mouse(event_type::double_click, on_row(0));
    EXPECT_TRUE(is_open());
    EXPECT_EQ("", drawn());
}

TEST_F(option_list_test, the_row_under_the_mouse_lights_up) {
    open();
    list_mouse(event_type::move, on_row(0));
    EXPECT_EQ(row + " hot", drawn());
    list_mouse(event_type::move, {40, 30});
    EXPECT_EQ("", drawn()) << "on its label";
    list_mouse(event_type::move, on_row(1));
    EXPECT_EQ(row + ", " + row + " hot", drawn());
    press_in_list(on_row(1), [&](const moved_function&) {
        EXPECT_EQ(row + " down", drawn()) << "the press forgets what the mouse was over";
    });
}

TEST_F(option_list_test, opens_and_chooses_again) {
    for (const int chosen : {0, 2, 1, 1}) {
        open();
        choose(chosen);
        EXPECT_EQ(chosen + 1, popup->get_selected());
        EXPECT_TRUE(shows(static_cast<std::size_t>(chosen), {40, 30}));
    }
}

TEST_F(option_list_test, needs_somebody_to_tell) {
    const auto list = popup_options::option_list::create(style, rect, {}, nullptr);
    list->float_above(*node());
    EXPECT_THROW(press_in_list({20, 21}, nullptr), std::bad_function_call);
    list->end_floating();
}

// Other ends

TEST_F(option_list_test, goes_with_the_focus) {
    open();
    service.floated->on_focus_lost();
    EXPECT_FALSE(is_open());
    EXPECT_EQ(2, popup->get_selected());
    EXPECT_TRUE(shows(1, {40, 30}));
    EXPECT_EQ(frame + " focused", drawn());
}

TEST_F(option_list_test, goes_with_the_focus_in_the_middle_of_a_drag) {
    open();
    press_in_list(on_row(0), [&](const moved_function& moved) {
        service.floated->on_focus_lost();
        EXPECT_FALSE(is_open());
        EXPECT_EQ(style->brush, labels[0]->brush);
        EXPECT_TRUE(shows(1, {40, 30}));
        forget();
        EXPECT_FALSE(moved(on_row(2)));
        EXPECT_EQ("", drawn());
    });
    EXPECT_EQ("", drawn());
    EXPECT_EQ(2, popup->get_selected());
}

TEST_F(option_list_test, an_end_of_the_drag_leaves_the_next_list_alone) {
    open();
    press_in_list(on_row(0), [&](const moved_function&) {
        service.floated->on_focus_lost();
        open();
    });
    EXPECT_TRUE(is_open());
    EXPECT_EQ(2, popup->get_selected());
    choose(2);
    EXPECT_EQ(3, popup->get_selected());
}

TEST_F(option_list_test, selection_and_place_may_change_while_it_is_open) {
    open();
    const auto in_row = labels[0]->node->get_transform();
    popup->set_selected(1);
    popup->arrange({0, 0, 60, 20});
    EXPECT_NE(node(), row_node(0));
    EXPECT_TRUE(same(in_row, labels[0]->node->get_transform()));
    EXPECT_EQ("", drawn());
    service.floated->on_focus_lost();
    EXPECT_TRUE(shows(0, {30, 10}));
    EXPECT_EQ(nullptr, labels[1]->node->get_parent());
    EXPECT_EQ("frame 0.5 0.5 59.5 19.5 r 2.5: focused", drawn());
}

TEST_F(option_list_test, goes_with_its_control) {
    open();
    popup->get_node()->get_parent()->remove_child(popup->get_node());
    popup.reset();
    EXPECT_FALSE(is_open());
    EXPECT_TRUE(control_is_gone());
    EXPECT_TRUE(shows_nothing());
}

TEST_F(option_list_test, goes_with_its_control_in_the_middle_of_a_drag) {
    open();
    const auto kept = node();
    press_in_list(on_row(0), [&](const moved_function& moved) {
        popup.reset();
        EXPECT_FALSE(is_open());
        EXPECT_FALSE(moved(on_row(2)));
    });
    EXPECT_TRUE(control_is_gone());
    EXPECT_TRUE(shows_nothing());
    EXPECT_EQ(row + " down", drawn()) << "as at the press, and nothing since";
    root->remove_child(kept);
}

TEST_F(option_list_test, stays_where_its_control_leaves_the_scene) {
    open();
    root->remove_child(node());
    EXPECT_TRUE(is_open());
    choose(0);
    EXPECT_FALSE(is_open());
    EXPECT_TRUE(shows(0, {40, 30}));
    root->add_child(node());
}

// What on_change may do

TEST_F(option_list_test, the_change_is_told_while_the_list_is_there) {
    popup->set_on_change([&](std::optional<int> id) {
        EXPECT_EQ(1, id);
        EXPECT_EQ(1, popup->get_selected());
        EXPECT_TRUE(is_open());
        EXPECT_TRUE(shows(0, {40, 30}));
        press_at(beside_label);
        static_cast<void>(say("told"));
    });
    open();
    choose(0);
    EXPECT_FALSE(is_open());
    EXPECT_EQ(1, popup->get_selected());
}

TEST_F(option_list_test, what_a_change_throws_finds_the_list_closed) {
    popup->set_on_change([](std::optional<int>) { throw std::logic_error("mine"); });
    open();
    EXPECT_EQ("mine", thrown_by([&] { choose(0); }));
    EXPECT_FALSE(is_open());
    EXPECT_TRUE(shows(0, {40, 30}));
    EXPECT_EQ(1, popup->get_selected());
    popup->set_on_change(change_log());
    open();
    choose(2);
    EXPECT_EQ(3, popup->get_selected());
}

TEST_F(option_list_test, a_change_may_select_another_and_replace_itself) {
    popup->set_on_change([&, token = std::make_shared<int>(7)](std::optional<int>) {
        popup->set_on_change(nullptr);
        popup->set_selected(3);
        EXPECT_EQ(7, *token);
    });
    open();
    choose(0);
    EXPECT_EQ(3, popup->get_selected());
    EXPECT_TRUE(shows(2, {40, 30}));
    EXPECT_EQ(nullptr, labels[0]->node->get_parent());
    open();
    choose(0);
    EXPECT_EQ(1, popup->get_selected());
}

TEST_F(option_list_test, a_change_may_release_the_control_and_its_node) {
    popup->set_on_change([&](std::optional<int>) {
        root->remove_child(node());
        popup.reset();
    });
    open();
    choose(0);
    EXPECT_FALSE(is_open());
    EXPECT_TRUE(control_is_gone());
}

TEST_F(option_list_test, a_press_during_the_change_ends_nothing_twice) {
    int changes = 0;
    popup->set_on_change([&](std::optional<int>) {
        ++changes;
        press_in_list({20, 21}, nullptr);
        service.floated->on_focus_lost();
        EXPECT_TRUE(is_open());
    });
    open();
    choose(0);
    EXPECT_FALSE(is_open());
    EXPECT_EQ(1, changes);
    EXPECT_EQ(1, popup->get_selected());
}

}  // namespace
}  // namespace d2d
