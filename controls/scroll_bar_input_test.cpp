// A scroll bar under the mouse: presses on the track, drags of the thumb, and who is told.

#include "controls/testing/scroll_bar_fixture.h"

#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using input::mouse::button;
using scene::fakes::call_text;
using scene::fakes::thrown_by;
using positions = std::vector<float>;
namespace event_type = input::mouse::event_type;

class scroll_bar_input_test : public fakes::scroll_bar_fixture {
protected:
    /// A bar at the origin: what is compared with the pointer needs no place there.
    void make_at_origin(orientation direction, const range& with = usual_range) {
        make(direction, with,
             direction == orientation::vertical ? D2D_RECT_F{0, 0, 16, 202} : D2D_RECT_F{0, 0, 202, 16});
        hear_positions();
    }

    std::string heard;  // what the root was told; here, as it is told until the tree goes
};

// Presses on the track

struct press_case {
    const char* name;
    float position;  // the thumb starts at half of it
    float along;     // where the press is on the axis
    float expected;
};

TEST_F(scroll_bar_input_test, left_press_on_the_track_moves_a_page_towards_the_pointer) {
    const press_case cases[] = {
        {"behind the thumb", 0, 180, 100},       {"far behind is a page as well", 100, 201, 200},
        {"ahead of the thumb", 200, 10, 100},    {"just ahead of the thumb's start", 200, 99.5f, 100},
        {"exactly at its start", 200, 100, 200}, {"held at the end", 250, 190, 300},
        {"held at the start", 50, 2, 0},         {"at the end already", 300, 201, 300},
    };
    for (const auto direction : {orientation::vertical, orientation::horizontal}) {
        for (const auto& each : cases) {
            SCOPED_TRACE(testing::Message() << each.name << ", " << static_cast<int>(direction));
            make_at_origin(direction, {each.position, 0, 300, 100, 16});
            const bool upright_bar = direction == orientation::vertical;
            // At the edge across, beside the thumb: the track takes it all along.
            press(button::left,
                  upright_bar ? D2D_POINT_2F{0.5f, each.along} : D2D_POINT_2F{each.along, 0.5f});
            EXPECT_EQ(each.expected, bar->get_position());
            EXPECT_EQ(each.expected == each.position ? positions{} : positions{each.expected}, take_told());
            const float place = 1 + each.expected / 2;
            EXPECT_EQ(upright_bar ? call_text(1, place) : call_text(place, 1), thumb_place());
            EXPECT_EQ((lines{}), drawn());
            root->remove_child(bar->get_node());
        }
    }
}

TEST_F(scroll_bar_input_test, pointer_is_compared_as_it_comes_wherever_the_bar_lies) {
    make(orientation::vertical, {200, 0, 300, 100, 16});  // from y 50 on: the thumb covers 151 to 201
    hear_positions();
    press(button::left, {100.5f, 140});  // ahead of the thumb, and behind the 100 that its start counts
    EXPECT_EQ(300, bar->get_position());
    bar->set_position(200);
    press(button::left, {100.5f, 100});
    EXPECT_EQ(200, bar->get_position());
    press(button::left, {100.5f, 99});
    EXPECT_EQ(100, bar->get_position());
    EXPECT_EQ((positions{300, 100}), take_told());
}

TEST_F(scroll_bar_input_test, double_click_on_the_track_counts_as_a_press) {
    make_at_origin(orientation::vertical);
    press(button::left, {0.5f, 180});
    press(button::left, {0.5f, 180}, event_type::double_click);
    EXPECT_EQ((positions{100, 200}), take_told());
}

TEST_F(scroll_bar_input_test, other_events_on_the_track_change_nothing) {
    make_at_origin(orientation::vertical, {100, 0, 300, 100, 16});
    for (int type = event_type::enter; type <= event_type::hover_end; ++type) {
        if (type == event_type::button_down || type == event_type::double_click) continue;
        for (const auto each : {button::left, button::right}) press(each, {0.5f, 180}, type);
    }
    for (const auto each : {button::middle, button::extended}) {
        press(each, {0.5f, 180});
        press(each, {0.5f, 180}, event_type::double_click);
    }
    edge->on_mouse_event({event_type::button_down, std::nullopt, 0, {0.5f, 180}, 0});
    edge->on_mouse_event({event_type::wheel, std::nullopt, 0, {0.5f, 180}, -120});
    EXPECT_EQ(100, bar->get_position());
    EXPECT_EQ((positions{}), take_told());
    EXPECT_EQ((lines{}), calls());
}

TEST_F(scroll_bar_input_test, press_on_the_track_goes_on_to_those_above) {
    make_at_origin(orientation::vertical);
    root->add_mouse_handler([&](scene::INode*, int depth, input::mouse::event event) {
        heard += call_text(event.type, depth) + ";";
        return false;
    });
    press(button::left, {0.5f, 180});
    press(button::right, {0.5f, 180});
    EXPECT_EQ("3 -1;3 1;3 -1;3 1;", heard);
}

TEST_F(scroll_bar_input_test, press_on_something_in_the_bars_node_counts_on_its_way_up_alone) {
    make_at_origin(orientation::vertical);
    const auto cover = filled({0, 0, 16, 202}, bar->get_node());
    press(button::left, {8, 180});
    EXPECT_EQ((positions{100}), take_told());
    cover->add_mouse_handler([](scene::INode*, int, input::mouse::event) { return true; });
    press(button::left, {8, 180});
    EXPECT_EQ((positions{}), take_told());
}

TEST_F(scroll_bar_input_test, page_is_the_whole_step_though_the_thumb_is_elsewhere) {
    make_at_origin(orientation::vertical, {500, 0, 300, 100, 16});  // outside, as it was given
    press(button::left, {0.5f, 100});                               // the thumb counts from 250
    EXPECT_EQ(300, bar->get_position()) << "a page back, and then held";
    EXPECT_EQ((positions{300}), take_told());
}

TEST_F(scroll_bar_input_test, without_a_page_a_press_moves_nowhere) {
    make_at_origin(orientation::vertical, {100, 0, 300, 0, 16});
    press(button::left, {0.5f, 180});
    press(button::left, {0.5f, 2});
    EXPECT_EQ((positions{}), take_told());
    EXPECT_EQ((lines{}), calls());
}

// The right button

TEST_F(scroll_bar_input_test, right_press_jumps_and_then_follows_the_pointer) {
    for (const auto direction : {orientation::vertical, orientation::horizontal}) {
        SCOPED_TRACE(static_cast<int>(direction));
        make_at_origin(direction);
        const auto at = [&](float along) {
            return direction == orientation::vertical ? D2D_POINT_2F{0.5f, along} : D2D_POINT_2F{along, 0.5f};
        };
        drag_through({at(100), at(100), at(50.25f), at(-70), at(1000)});
        press(button::right, at(125));
        EXPECT_EQ((positions{200, 150, 50.5f, 0, 300}), take_told());
        EXPECT_EQ((lines{call_text("drag_loop", at(125), 1, scene::identity_matrix)}), drawn());
        EXPECT_EQ(direction == orientation::vertical ? "1 151" : "151 1", thumb_place());
        root->remove_child(bar->get_node());
    }
}

TEST_F(scroll_bar_input_test, right_press_moves_ahead_of_the_drag) {
    make_at_origin(orientation::vertical);
    positions before_drag;
    site.drag = [&](const auto&) {
        before_drag = told;
        return false;
    };
    press(button::right, {0.5f, 125});
    EXPECT_EQ((positions{200}), before_drag);
    EXPECT_EQ(200, bar->get_position()) << "stays when the drag is cancelled";
}

TEST_F(scroll_bar_input_test, right_double_click_jumps_too) {
    make_at_origin(orientation::vertical);
    press(button::right, {0.5f, 125}, event_type::double_click);
    EXPECT_EQ((positions{200}), take_told());
    EXPECT_EQ((lines{"drag_loop 0.5 125 1 1 0 0 1 0 0"}), drawn());
}

TEST_F(scroll_bar_input_test, right_press_on_the_thumb_is_one_on_the_track) {
    make_at_origin(orientation::vertical);
    press(button::right, {8, 45});  // in the thumb, which covers 1 to 51
    EXPECT_EQ((positions{40}), take_told());
    EXPECT_EQ((lines{"drag_loop 8 45 1 1 0 0 1 0 0"}), drawn());
}

TEST_F(scroll_bar_input_test, jump_counts_from_the_space_of_the_bar) {
    make(orientation::vertical);  // from y 50 on
    hear_positions();
    press(button::right, {100.5f, 125});
    EXPECT_EQ((positions{200}), take_told());
    EXPECT_EQ("101 151", thumb_place());
}

TEST_F(scroll_bar_input_test, jump_counts_from_the_minimum) {
    make_at_origin(orientation::vertical, {0, -100, 200, 100, 16});
    press(button::right, {0.5f, 125});
    EXPECT_EQ((positions{100}), take_told());
}

TEST_F(scroll_bar_input_test, jump_of_a_thumb_without_room_gives_one_of_the_ends) {
    // The shortest thumb is as long as the track: no pixel stands for a unit.
    const range given{3, 0, 10, 0, 0};
    for (const float along : {0.5f, 7.0f, 13.0f}) {
        SCOPED_TRACE(along);
        make(orientation::vertical, given, {0, 0, 16, 16});
        press(button::right, {0.5f, along});
        const float reached = bar->get_position();
        EXPECT_TRUE(reached == 0 || reached == 10) << reached;
        if (along != 7) {
            EXPECT_EQ(along < 7 ? 0 : 10, reached);
        }
        EXPECT_EQ("1 1", thumb_place());
        root->remove_child(bar->get_node());
    }
}

TEST_F(scroll_bar_input_test, jump_without_a_span_keeps_the_only_position) {
    for (const float along : {10.0f, 101.0f, 190.0f}) {  // the thumb's middle is at 100, and its length 200
        make_at_origin(orientation::vertical, {5, 5, 5, 100, 0});
        press(button::right, {0.5f, along});
        EXPECT_EQ(5, bar->get_position());
        EXPECT_EQ((positions{}), take_told());
        root->remove_child(bar->get_node());
    }
    make_at_origin(orientation::vertical, {5, 5, 5, 100, 0});
    press(button::right, {0.5f, 100});
    EXPECT_EQ(5, bar->get_position());
}

// Drags of the thumb

TEST_F(scroll_bar_input_test, thumb_follows_the_grip_and_the_position_follows_the_thumb) {
    make(orientation::vertical, {100, 0, 300, 100, 16});
    hear_positions();
    drag_through({{110, 110}, {300, 130}, {108, 125.25f}});
    press(button::left, {110, 110});
    EXPECT_EQ((positions{100, 140, 130.5f}), take_told());
    EXPECT_EQ("101 116.25", thumb_place());
    EXPECT_EQ(130.5f, bar->get_position());
    EXPECT_EQ((lines{"drag_loop 110 110 0 1 0 0 1 0 0"}), drawn());
}

TEST_F(scroll_bar_input_test, lying_thumb_follows_across_the_screen) {
    make(orientation::horizontal, {100, 0, 300, 100, 16});
    hear_positions();
    drag_through({{130, 300}, {125.25f, -7}});
    press(button::left, {110, 110});
    EXPECT_EQ((positions{140, 130.5f}), take_told());
    EXPECT_EQ("116.25 101", thumb_place());
}

TEST_F(scroll_bar_input_test, thumb_stops_at_the_ends_and_keeps_its_grip) {
    make(orientation::vertical, {100, 0, 300, 100, 16});
    hear_positions();
    std::vector<std::string> places;
    bar->add_position_listener([&](float) { places.push_back(thumb_place()); });
    drag_through({{110, 40}, {110, 10}, {110, 60}, {110, 61}, {110, 9999}, {110, 211}, {110, 209}});
    press(button::left, {110, 110});
    EXPECT_EQ((positions{0, 0, 0, 2, 300, 300, 298}), take_told());
    EXPECT_EQ("101 200", thumb_place());
    // Listeners come ahead of the movement.
    const std::vector<std::string> expected{"101 101", "101 51",  "101 51", "101 51",
                                            "101 52",  "101 201", "101 201"};
    EXPECT_EQ(expected, places);
}

TEST_F(scroll_bar_input_test, drag_tells_of_each_point_even_without_a_change) {
    make(orientation::vertical, {100, 0, 300, 100, 16});
    hear_positions();
    drag_through({{110, 110}, {120, 110}, {130, 110}});
    press(button::left, {110, 110});
    EXPECT_EQ((positions{100, 100, 100}), take_told());
}

TEST_F(scroll_bar_input_test, press_without_a_movement_changes_and_tells_nothing) {
    make(orientation::vertical, {301, 0, 300, 100, 16}, {100, 50, 116, 652});  // 1.5 pixels for a unit
    hear_positions();
    press(button::left, {108, 510});  // the thumb is at 502.5
    EXPECT_EQ((lines{"drag_loop 108 510 0 1 0 0 1 0 0"}), calls());
    EXPECT_EQ((positions{}), take_told());
    EXPECT_EQ(301, bar->get_position());
}

TEST_F(scroll_bar_input_test, drag_of_a_thumb_that_lies_outside_starts_from_there) {
    make(orientation::vertical, {310, 0, 300, 100, 16});
    hear_positions();
    drag_through({{110, 210}, {110, 204}});
    press(button::left, {110, 210});  // the thumb covers 206 to 256 of which 252 shows
    EXPECT_EQ((positions{300, 298}), take_told());
    EXPECT_EQ("101 200", thumb_place());
}

TEST_F(scroll_bar_input_test, cancelled_drag_leaves_the_thumb_where_it_is) {
    make(orientation::vertical, {100, 0, 300, 100, 16});
    drag_through({{110, 130}}, false);
    press(button::left, {110, 110});
    EXPECT_EQ(140, bar->get_position());
    EXPECT_EQ("101 121", thumb_place());
}

TEST_F(scroll_bar_input_test, left_press_on_the_thumb_is_done_and_any_other_goes_on) {
    make(orientation::vertical);
    root->add_mouse_handler([&](scene::INode*, int depth, input::mouse::event event) {
        heard += call_text(event.type, event.button ? static_cast<int>(*event.button) : -1, depth) + ";";
        return false;
    });
    press(button::left, {108, 60});
    EXPECT_EQ("3 0 -2;", heard);
    heard.clear();
    press(button::middle, {108, 60});
    press(button::left, {108, 60}, event_type::button_up);
    EXPECT_EQ("3 4 -2;3 4 2;4 0 -2;4 0 2;", heard);
    EXPECT_EQ(0, bar->get_position());
}

TEST_F(scroll_bar_input_test, press_on_something_in_the_thumb_grips_it_on_its_way_up_alone) {
    make_at_origin(orientation::vertical, {100, 0, 300, 100, 16});
    const auto cover = filled({0, 0, 14, 50}, com::ptr<scene::INode>(&thumb()));
    forget();
    drag_through({{8, 80}});
    press(button::left, {8, 60});
    EXPECT_EQ((positions{140}), take_told());
    cover->add_mouse_handler([](scene::INode*, int, input::mouse::event) { return true; });
    press(button::left, {8, 80});
    EXPECT_EQ((positions{}), take_told());
}

TEST_F(scroll_bar_input_test, double_click_on_the_thumb_reaches_the_track) {
    make_at_origin(orientation::vertical, {200, 0, 300, 100, 16});
    press(button::left, {8, 120}, event_type::double_click);  // in the thumb, from 101 on
    EXPECT_EQ((positions{300}), take_told());
    EXPECT_EQ((lines{}), drawn()) << "and starts no drag";
}

TEST_F(scroll_bar_input_test, thumb_without_room_stays_and_keeps_an_end) {
    make_at_origin(orientation::vertical, {5, 5, 5, 100, 0});
    drag_through({{8, 110}, {9, 100}, {8, 20}, {8, 100}});
    press(button::left, {8, 100});
    EXPECT_EQ(5, bar->get_position());
    EXPECT_EQ("1 1", thumb_place());
    for (const float each : take_told()) EXPECT_EQ(5, each);
    root->remove_child(bar->get_node());

    make(orientation::vertical, {3, 0, 10, 0, 0}, {0, 0, 16, 16});  // a span, and no pixel for it
    drag_through({{8, 8}});
    press(button::left, {8, 8});
    const float reached = bar->get_position();
    EXPECT_TRUE(reached == 0 || reached == 10) << reached;
    EXPECT_EQ("1 1", thumb_place());
    drag_through({{8, 9}});
    press(button::left, {8, 8});
    EXPECT_EQ(10, bar->get_position());
    drag_through({{8, 7}});
    press(button::left, {8, 8});
    EXPECT_EQ(0, bar->get_position());
    EXPECT_EQ("1 1", thumb_place());
}

TEST_F(scroll_bar_input_test, thumb_longer_than_its_track_moves_against_the_pointer) {
    make(orientation::vertical, {0, 0, 10, 10, 0}, {0, 0, 30, 20});  // 10 pixels too long
    hear_positions();
    drag_through({{15, 8}, {15, 12}});
    press(button::left, {15, 10});
    EXPECT_EQ((positions{2, 0}), take_told());
    EXPECT_EQ("1 1", thumb_place());
}

TEST_F(scroll_bar_input_test, bar_in_a_moved_and_scaled_tree_drags_in_its_own_space) {
    make(orientation::vertical, {100, 0, 300, 100, 16});
    hear_positions();
    root->set_transform({{{2, 0, 0, 2, 10, 20}}});
    forget();
    drag_through({{110, 130}});
    press(button::left, {230, 240});  // (110, 110) in the bar
    EXPECT_EQ((positions{140}), take_told());
    EXPECT_EQ((lines{"drag_loop 230 240 0 0.5 0 0 0.5 -5 -10"}), drawn());
}

// Listeners

TEST_F(scroll_bar_input_test, listeners_are_told_in_order_until_they_are_removed) {
    make_at_origin(orientation::vertical);
    const auto first = bar->add_position_listener([&](float at) { heard += call_text("first", at, ""); });
    const auto second = bar->add_position_listener([&](float at) { heard += call_text("second", at, ""); });
    EXPECT_NE(first, second);
    press(button::left, {0.5f, 180});
    EXPECT_EQ("first 100 second 100 ", heard);
    heard.clear();
    bar->remove_position_listener(first);
    press(button::left, {0.5f, 180});
    EXPECT_EQ("second 200 ", heard);
    heard.clear();
    bar->remove_position_listener(nullptr);
    bar->remove_position_listener(first);
    const ui::IScrollBar::position_function foreign;
    bar->remove_position_listener(&foreign);
    press(button::left, {0.5f, 200});
    EXPECT_EQ("second 300 ", heard);
    bar->remove_position_listener(second);
    bar->set_position(0);
    press(button::left, {0.5f, 200});
    EXPECT_EQ("second 300 ", heard);
    EXPECT_EQ((positions{100, 200, 300, 100}), take_told());
}

TEST_F(scroll_bar_input_test, token_is_the_address_of_the_stored_function) {
    make(orientation::vertical);
    float last = 0;
    const auto token = bar->add_position_listener([&](float at) { last = at; });
    ASSERT_NE(nullptr, token);
    (*token)(7);
    EXPECT_EQ(7, last);
}

TEST_F(scroll_bar_input_test, program_changes_position_and_range_in_silence) {
    make_at_origin(orientation::vertical);
    bar->set_position(100);
    bar->set_range({50, 0, 200, 100, 16});
    bar->arrange({0, 0, 16, 102});
    EXPECT_EQ((positions{}), take_told());
}

TEST_F(scroll_bar_input_test, empty_listener_fails_when_its_turn_comes) {
    make_at_origin(orientation::vertical);
    bar->add_position_listener(nullptr);
    positions behind;
    bar->add_position_listener([&](float at) { behind.push_back(at); });
    bar->set_position(50);
    EXPECT_THROW(press(button::left, {0.5f, 180}), std::bad_function_call);
    EXPECT_EQ((positions{150}), take_told());
    EXPECT_EQ((positions{}), behind);
    EXPECT_EQ(150, bar->get_position());
}

}  // namespace
}  // namespace d2d
