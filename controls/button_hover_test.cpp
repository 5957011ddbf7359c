// The mouse over a button: a count, since what lies inside reports its own coming and going too.

#include "controls/testing/button_test.h"

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::every_button;
using scene::fakes::call_text;
namespace event_type = input::mouse::event_type;

using button_hover = every_button;
INSTANTIATE_TEST_SUITE_P(of, button_hover, testing::ValuesIn(fakes::button_kinds), fakes::name_of_kind);

TEST_P(button_hover, shows_from_the_entering_to_the_leaving) {
    move_to(inside);
    EXPECT_EQ((lines{"label_brush enabled hot", "set_brush", "draw 10 20 70 40: enabled hot",
                     "invalidate_rect 10 20 70 40", "invalidate_rect 10 20 70 40"}),
              calls());
    move(inside.x + 3, inside.y);
    EXPECT_EQ((lines{}), calls());
    move_to(outside);
    EXPECT_EQ((lines{"label_brush enabled", "set_brush", "draw 10 20 70 40: enabled",
                     "invalidate_rect 10 20 70 40", "invalidate_rect 10 20 70 40"}),
              calls());
}

TEST_P(button_hover, shows_while_it_is_disabled) {
    button->set_enabled(false);
    forget();
    move_to(inside);
    EXPECT_EQ("disabled hot", drawn());
    button->set_enabled(true);
    EXPECT_EQ("enabled hot", drawn());
    button->set_enabled(false);
    EXPECT_EQ("disabled hot", drawn());
    move_to(outside);
    EXPECT_EQ("disabled", drawn());
}

TEST_P(button_hover, goes_on_between_the_frame_and_the_label) {
    const D2D_POINT_2F path[] = {inside, on_label, inside, on_label};
    move_to(path[0]);
    EXPECT_EQ("enabled hot", drawn());
    for (const auto& point : path) {
        move_to(point);
        EXPECT_EQ("", drawn());
    }
    move_to(outside);  // two leave at once
    EXPECT_EQ("enabled", drawn());
    move_to(on_label);  // two enter at once
    EXPECT_EQ("enabled hot", drawn());
    move_to(inside);
    EXPECT_EQ("", drawn());
    mouse(event_type::leave, 0, 0);
    EXPECT_EQ("enabled", drawn());
}

TEST_P(button_hover, counts_every_node_below_it) {
    const auto deep = filled({30, 22, 60, 38}, label->node);
    const auto deepest = filled({30, 22, 60, 38}, deep);
    forget();
    move(50, 35);
    EXPECT_EQ("enabled hot", drawn());
    move(12, 38);
    EXPECT_EQ("", drawn());
    move(50, 35);
    EXPECT_EQ("", drawn());
    move_to(outside);
    EXPECT_EQ("enabled", drawn());
}

TEST_P(button_hover, draws_nothing_for_other_events) {
    move_to(inside);
    forget();
    for (const int type :
         {event_type::move, event_type::button_up, event_type::double_click, event_type::wheel,
          event_type::horizontal_wheel, event_type::hover, event_type::hover_end}) {
        mouse(type, inside.x, inside.y);
        edge->on_mouse_event({type, mouse_button::left, 0, inside, 120});
        EXPECT_EQ("", heard()) << "type " << type;
    }
}

TEST_P(button_hover, lets_every_event_pass_but_a_press) {
    name(label->node, "label");
    name(node(), "button");
    name(root, "root");
    hear_mouse(root, words::type);
    hear_mouse(label->node, words::type);
    const auto others = [this] {
        std::string text;
        for (const auto& line : calls()) {
            if (line.starts_with("root") || line.starts_with("label ")) text += line + ", ";
        }
        return text;
    };
    mouse(event_type::enter, on_label.x, on_label.y);
    EXPECT_EQ("root 0 0, root 0 -1, root 0 -2, label 0 0, ", others());
    move_to(on_label);
    EXPECT_EQ("root 1 -2, label 1 0, root 1 2, ", others());
    for (const int type :
         {event_type::button_up, event_type::double_click, event_type::wheel, event_type::horizontal_wheel}) {
        edge->on_mouse_event({type, mouse_button::left, 0, on_label, 0});
        EXPECT_EQ(
            call_text("root", type, -2) + call_text(", label", type, 0) + call_text(", root", type, 2) + ", ",
            others());
    }
    mouse(event_type::leave, 0, 0);
    EXPECT_EQ("label 2 0, root 2 -2, root 2 -1, root 2 0, ", others());
}

TEST_P(button_hover, ends_as_the_button_leaves_the_view) {
    move_to(on_label);
    forget();
    root->remove_child(node());
    EXPECT_EQ("enabled", drawn());
    root->add_child(node());
    move_to(inside);
    EXPECT_EQ("enabled hot", drawn());
    move_to(outside);
    EXPECT_EQ("enabled", drawn());
}

TEST_P(button_hover, of_the_corners_follows_what_is_drawn) {
    button->arrange({30, 40, 60, 60});
    forget();
    move(20, 30);  // where it was
    EXPECT_EQ("", drawn());
    move(45, 58);
    EXPECT_EQ("enabled hot", drawn());
    move_to(inside);
    EXPECT_EQ("enabled", drawn());
}

}  // namespace
}  // namespace d2d
