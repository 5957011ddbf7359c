// A press on a button: a loop of its own from the left button's going down to its release.

#include "controls/testing/button_test.h"

#include <optional>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::every_button;
using scene::translation_matrix;
using scene::fakes::thrown_by;
namespace event_type = input::mouse::event_type;

class button_press : public every_button {
protected:
    void SetUp() override {
        every_button::SetUp();
        button->set_on_click(click_log());
        forget();
    }
    using moved_function = std::function<bool(D2D_POINT_2F)>;
};
INSTANTIATE_TEST_SUITE_P(of, button_press, testing::ValuesIn(fakes::button_kinds), fakes::name_of_kind);

TEST_P(button_press, takes_the_focus_drags_resolves_and_calls_in_this_order) {
    move_to(inside);
    forget();
    press_at(inside);
    const std::string state = latched("enabled hot");
    EXPECT_EQ((lines{"request_focus", "label_brush enabled hot down", "set_brush",
                     "draw 10 20 70 40: enabled hot down", "invalidate_rect 10 20 70 40",
                     "invalidate_rect 10 20 70 40", "drag_loop 40 34 0 1 0 0 1 0 0", "label_brush " + state,
                     "set_brush", "draw 10 20 70 40: " + state, "invalidate_rect 10 20 70 40",
                     "invalidate_rect 10 20 70 40", latches() ? "click 1" : "click 0"}),
              calls());
    EXPECT_EQ(latches(), button->is_checked());
}

TEST_P(button_press, makes_it_hot_where_no_entering_was_told) {
    press_at(inside);
    EXPECT_EQ("enabled hot down, " + latched("enabled") + (latches() ? ", click 1" : ", click 0"),
              drawn_and_clicked());
    move_to(inside);
    EXPECT_EQ(latched("enabled hot"), drawn());
    move_to(outside);
    EXPECT_EQ(latched("enabled"), drawn());
}

TEST_P(button_press, again_toggles_what_latches) {
    const bool states[] = {latches(), false, latches(), false};
    for (const bool checked : states) {
        press_at(inside);
        EXPECT_EQ(checked, button->is_checked());
        const std::string all = drawn_and_clicked();
        EXPECT_EQ(checked ? "click 1" : "click 0", all.substr(all.size() - 7));
    }
}

TEST_P(button_press, keeps_the_latched_look_while_down) {
    button->set_checked(true);
    forget();
    press_at(inside);
    EXPECT_EQ(latches() ? "enabled hot down checked, enabled, click 0" : "enabled hot down, enabled, click 0",
              drawn_and_clicked());
}

TEST_P(button_press, that_leaves_and_returns_shows_it_and_clicks) {
    while_pressed([&](const moved_function& moved) {
        EXPECT_EQ("enabled hot down", drawn());
        EXPECT_FALSE(moved(inside));
        EXPECT_EQ("", drawn());
        EXPECT_FALSE(moved(outside));
        EXPECT_EQ("enabled hot", drawn());
        EXPECT_FALSE(moved({-500, 9000}));
        EXPECT_EQ("", drawn());
        EXPECT_FALSE(moved(inside));
        EXPECT_EQ("enabled hot down", drawn());
        EXPECT_FALSE(button->is_checked());
    });
    press_at(inside);
    EXPECT_EQ(latched("enabled") + (latches() ? ", click 1" : ", click 0"), drawn_and_clicked());
}

TEST_P(button_press, that_ends_outside_clicks_nothing) {
    move_to(inside);
    forget();
    while_pressed([&](const moved_function& moved) { EXPECT_FALSE(moved(outside)); });
    press_at(inside);
    // Hot until the next movement says where the mouse is.
    EXPECT_EQ("enabled hot down, enabled hot, enabled hot", drawn_and_clicked());
    EXPECT_FALSE(button->is_checked());
    move_to(outside);
    EXPECT_EQ("enabled", drawn());
}

TEST_P(button_press, that_the_host_cancels_over_the_button_clicks_all_the_same) {
    for (const bool whole : {true, false}) {
        button->set_checked(false);
        forget();
        site.drag = [whole](const auto&) { return whole; };
        press_at(inside);
        EXPECT_EQ("enabled hot down, " + latched("enabled") + (latches() ? ", click 1" : ", click 0"),
                  drawn_and_clicked());
    }
}

TEST_P(button_press, asks_its_own_recording_and_not_its_label) {
    record(label->node, {100, 0, 150, 50});
    const D2D_POINT_2F beside{140, 40};
    forget();
    while_pressed([&](const moved_function& moved) {
        moved(beside);
        EXPECT_EQ("enabled hot down, enabled hot", drawn());
    });
    press_at(inside);
    EXPECT_EQ("enabled", drawn_and_clicked());
    // A press on a label beyond the frame is one all the same, until the mouse moves.
    press_at(beside);
    EXPECT_EQ("enabled", drawn_and_clicked());
    while_pressed([](const moved_function&) {});
    press_at(beside);
    EXPECT_EQ("enabled hot down, " + latched("enabled") + (latches() ? ", click 1" : ", click 0"),
              drawn_and_clicked());
}

TEST_P(button_press, on_the_label_is_taken_ahead_of_it) {
    name(label->node, "label");
    hear_mouse(label->node);
    hear_mouse(root);
    press_at(on_label);
    std::string heard_by_others;
    for (const auto& line : calls()) {
        if (line.starts_with("root") || line.starts_with("label ")) heard_by_others += line + ", ";
    }
    EXPECT_EQ("root -2, ", heard_by_others);
}

TEST_P(button_press, is_not_passed_on) {
    name(node(), "button");
    hear_mouse(node());  // behind its own handler
    hear_mouse(root);
    press_at(inside);
    const std::string all = heard();
    EXPECT_NE(std::string::npos, all.find("root -1"));
    EXPECT_EQ(std::string::npos, all.find("root 1"));
    EXPECT_EQ(std::string::npos, all.find("button 0"));
}

TEST_P(button_press, of_another_button_takes_the_focus_alone_and_is_passed_on) {
    edge->on_focus_gained();
    const std::optional<mouse_button> buttons[] = {mouse_button::right, mouse_button::middle,
                                                   mouse_button::extended, std::nullopt};
    name(root, "root");
    hear_mouse(root);
    for (const auto& other : buttons) {
        root->set_focus();
        forget();
        press_at(inside, other);
        EXPECT_TRUE(node()->has_focus(false));
        EXPECT_EQ((lines{"root -1", "label_brush enabled", "set_brush", "draw 10 20 70 40: enabled focused",
                         "invalidate_rect 10 20 70 40", "invalidate_rect 10 20 70 40", "root 1"}),
                  calls());
        EXPECT_FALSE(button->is_checked());
    }
}

TEST_P(button_press, second_one_of_a_double_click_is_none) {
    edge->on_mouse_event({event_type::double_click, mouse_button::left, 0, inside, 0});
    EXPECT_EQ("", heard());
    EXPECT_FALSE(button->is_checked());
}

TEST_P(button_press, on_a_disabled_button_does_nothing_and_is_passed_on) {
    button->set_enabled(false);
    edge->on_focus_gained();
    root->set_focus();
    name(root, "root");
    hear_mouse(root);
    forget();
    for (const auto pressed : {mouse_button::left, mouse_button::right}) {
        press_at(inside, pressed);
        EXPECT_EQ("root -1, root 1", heard());
        EXPECT_FALSE(node()->has_focus(false));
        EXPECT_TRUE(root->has_focus(false));
    }
    EXPECT_FALSE(button->is_checked());
}

TEST_P(button_press, on_an_enabled_button_without_a_handler_latches_and_calls_nothing) {
    button->set_on_click(nullptr);
    press_at(inside);
    EXPECT_EQ("enabled hot down, " + latched("enabled"), drawn_and_clicked());
    EXPECT_EQ(latches(), button->is_checked());
}

TEST_P(button_press, shows_the_focus_from_its_beginning) {
    edge->on_focus_gained();
    press_at(inside);
    EXPECT_EQ("enabled focused, enabled hot down focused, " + latched("enabled") + " focused" +
                  (latches() ? ", click 1" : ", click 0"),
              drawn_and_clicked());
    // The focus is moved from the button to itself, which tells it twice.
    button->set_checked(false);
    forget();
    press_at(inside);
    EXPECT_EQ("enabled focused, enabled focused, enabled hot down focused, " + latched("enabled") +
                  " focused" + (latches() ? ", click 1" : ", click 0"),
              drawn_and_clicked());
}

TEST_P(button_press, gives_the_host_the_matrix_of_its_node) {
    root->set_transform(translation_matrix(100, 50));
    forget();
    press_at({inside.x + 100, inside.y + 50});
    const auto said = calls();
    EXPECT_NE(said.end(), std::find(said.begin(), said.end(), "drag_loop 140 84 0 1 0 0 1 -100 -50"));
}

TEST_P(button_press, sees_the_mouse_leave_only_as_it_does) {
    move_to(inside);
    forget();
    while_pressed([&](const moved_function& moved) {
        move_to(outside);  // hot still, by the press
        EXPECT_EQ("enabled hot down", drawn());
        moved(outside);
        EXPECT_EQ("enabled hot", drawn());
    });
    press_at(inside);
    EXPECT_EQ("enabled", drawn_and_clicked());
}

TEST_P(button_press, counts_what_enters_meanwhile) {
    while_pressed([&](const moved_function&) { move_to(on_label); });
    press_at(inside);
    EXPECT_EQ("enabled hot down, " + latched("enabled hot") + (latches() ? ", click 1" : ", click 0"),
              drawn_and_clicked());
    move_to(outside);
    EXPECT_EQ(latched("enabled"), drawn());
}

TEST_P(button_press, draws_down_again_where_the_button_is_arranged_elsewhere_meanwhile) {
    while_pressed([&](const moved_function& moved) {
        button->arrange({70, 70, 95, 90});
        EXPECT_EQ("enabled hot down, enabled hot down", drawn());
        moved(inside);
        EXPECT_EQ("enabled hot", drawn());
        moved(outside);
        EXPECT_EQ("enabled hot down", drawn());
    });
    press_at(inside);
    EXPECT_EQ(latches(), button->is_checked());
}

TEST_P(button_press, within_a_press_counts_for_itself) {
    int depth = 0;
    while_pressed([&](const moved_function& moved) {
        if (++depth > 1) return static_cast<void>(moved(outside));
        press_at(inside);
        EXPECT_EQ("enabled hot down, enabled hot down, enabled hot, enabled hot", drawn_and_clicked());
        moved(inside);
        EXPECT_EQ("enabled hot down", drawn());
    });
    press_at(inside);
    EXPECT_EQ(latched("enabled") + (latches() ? ", click 1" : ", click 0"), drawn_and_clicked());
    move_to(inside);
    EXPECT_EQ(latched("enabled hot"), drawn());
    move_to(outside);
    EXPECT_EQ(latched("enabled"), drawn());
}

TEST_P(button_press, that_is_over_when_the_button_is_disabled_meanwhile_clicks_all_the_same) {
    while_pressed([&](const moved_function&) {
        button->set_enabled(false);
        EXPECT_EQ("enabled hot down, disabled hot down", drawn());
    });
    press_at(inside);
    EXPECT_EQ(latched("disabled") + (latches() ? ", click 1" : ", click 0"), drawn_and_clicked());
}

TEST_P(button_press, calls_the_handler_that_stands_at_its_end) {
    while_pressed([&](const moved_function&) {
        button->set_on_click([this](bool) { static_cast<void>(say("click other")); });
    });
    press_at(inside);
    EXPECT_EQ("enabled hot down, " + latched("enabled") + ", click other", drawn_and_clicked());
    while_pressed([&](const moved_function&) { button->set_on_click(nullptr); });
    button->set_checked(false);
    forget();
    press_at(inside);
    EXPECT_EQ("enabled hot down, " + latched("enabled"), drawn_and_clicked());
}

TEST_P(button_press, toggles_what_is_checked_meanwhile) {
    while_pressed([&](const moved_function&) { button->set_checked(true); });
    press_at(inside);
    EXPECT_FALSE(button->is_checked());
    EXPECT_EQ(latches() ? "enabled hot down, enabled hot down checked, enabled, click 0"
                        : "enabled hot down, enabled, click 0",
              drawn_and_clicked());
}

TEST_P(button_press, takes_back_its_look_where_the_loop_throws) {
    move_to(inside);
    forget();
    site.drag = [&](const auto& moved) -> bool {
        moved(outside);
        moved(inside);
        throw std::runtime_error("the loop ended");
    };
    EXPECT_EQ("the loop ended", thrown_by<std::runtime_error>([&] { press_at(inside); }));
    EXPECT_FALSE(button->is_checked());
    EXPECT_EQ("enabled hot down, enabled hot, enabled hot down, enabled hot", drawn_and_clicked());
    move_to(outside);
    EXPECT_EQ("enabled", drawn());  // neither down nor hot
    while_pressed([](const moved_function&) {});
    press_at(inside);
    EXPECT_EQ("enabled hot down, " + latched("enabled") + (latches() ? ", click 1" : ", click 0"),
              drawn_and_clicked());
}

TEST_P(button_press, ends_with_its_call) {
    button->set_on_click([this](bool checked) {
        EXPECT_EQ(latches(), checked);
        EXPECT_EQ(checked, button->is_checked());
        EXPECT_EQ("enabled hot down, " + latched("enabled"), drawn());
        button->set_checked(!checked);
        move_to(inside);
    });
    press_at(inside);
    EXPECT_EQ(latches() ? "enabled, enabled hot" : "enabled hot", drawn());
    EXPECT_FALSE(button->is_checked());
}

TEST_P(button_press, may_begin_again_within_its_call) {
    int calls_left = 3;
    button->set_on_click([&](bool) {
        if (--calls_left > 0) press_at(inside);
    });
    press_at(inside);
    EXPECT_EQ(0, calls_left);
    EXPECT_EQ(latches(), button->is_checked());
    forget();
    move_to(inside);
    EXPECT_EQ(latched("enabled hot"), drawn());
}

TEST_P(button_press, exception_of_its_call_passes_and_leaves_a_whole_button) {
    button->set_on_click([](bool) { throw std::runtime_error("not now"); });
    move_to(inside);
    forget();
    EXPECT_EQ("not now", thrown_by<std::runtime_error>([&] { press_at(inside); }));
    EXPECT_EQ("enabled hot down, " + latched("enabled hot"), drawn());
    EXPECT_EQ(latches(), button->is_checked());
    EXPECT_EQ("not now", thrown_by<std::runtime_error>([&] { press_at(inside); }));
    EXPECT_FALSE(button->is_checked());
    forget();
    move_to(outside);
    EXPECT_EQ("enabled", drawn());
}

TEST_P(button_press, outside_a_view_is_impossible_and_changes_nothing) {
    // A handler of the node's own sees the event although it has left.
    name(root, "root");
    hear_mouse(root);
    pass_after("root -1", [this] { root->remove_child(node()); });
    EXPECT_EQ("not expected", thrown_by<std::runtime_error>([&] { press_at(inside); }));
    EXPECT_FALSE(button->is_checked());
    forget();
    root->add_child(node());
    move_to(inside);
    EXPECT_EQ("enabled hot", drawn());
    move_to(outside);
    EXPECT_EQ("enabled", drawn());
}

}  // namespace
}  // namespace d2d
