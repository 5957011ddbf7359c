// The nodes under the mouse: enter, move and leave; rest and its end.

#include "com/weak_ptr.h"
#include "scene/testing/input_test.h"
#include "scene/view.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::references;
using fakes::thrown_by;
namespace event_type = input::mouse::event_type;

class hover_test : public fakes::input_test {
protected:
    void SetUp() override {
        input_test::SetUp();
        record(root, {0, 0, 100, 100});
        group = named("group", {0, 0, 50, 50}, root);
        left = named("left", {0, 0, 20, 20}, group);
        right = named("right", {20, 0, 40, 20}, group);
        for (const auto& each : {root, group, left, right}) hear_mouse(each, words::type);
        view->set_root(root);
    }
    void TearDown() override {
        group.reset();
        left.reset();
        right.reset();
        input_test::TearDown();
    }
    /// Puts the mouse somewhere without a word.
    void at(float x, float y) {
        move(x, y);
        static_cast<void>(heard());
    }

    com::ptr<INode> group;
    com::ptr<INode> left;
    com::ptr<INode> right;
};

TEST_F(hover_test, mouse_that_comes_enters_each_node_of_the_path_and_tells_those_above) {
    move(5, 5);
    EXPECT_EQ("root 0 0, root 0 -1, group 0 0, root 0 -2, group 0 -1, left 0 0", heard());
}

TEST_F(hover_test, move_within_a_node_is_routed_as_a_move) {
    at(5, 5);
    move(6, 6);
    EXPECT_EQ("root 1 -2, group 1 -1, left 1 0, group 1 1, root 1 2", heard());
    mouse(event_type::enter, 7, 7);
    EXPECT_EQ("root 1 -2, group 1 -1, left 1 0, group 1 1, root 1 2", heard())
        << "an entered window whose path is known is a move, too";
    when("group 1 -1", [] { return true; });
    move(8, 8);
    EXPECT_EQ("root 1 -2, group 1 -1", heard());
}

TEST_F(hover_test, move_from_a_child_to_its_parent_leaves_the_child) {
    at(5, 5);
    move(45, 45);
    EXPECT_EQ("left 2 0, group 2 -1, root 2 -2", heard());
}

TEST_F(hover_test, move_from_a_parent_to_its_child_enters_the_child) {
    at(45, 45);
    move(5, 5);
    EXPECT_EQ("root 0 -2, group 0 -1, left 0 0", heard());
}

TEST_F(hover_test, move_to_a_sibling_leaves_one_and_enters_the_other) {
    at(5, 5);
    move(25, 5);
    EXPECT_EQ("left 2 0, group 2 -1, root 2 -2, root 0 -2, group 0 -1, right 0 0", heard());
}

TEST_F(hover_test, leaving_goes_from_the_deepest_node_up) {
    at(5, 5);
    move(80, 80);
    EXPECT_EQ("left 2 0, group 2 -1, root 2 -2, group 2 0, root 2 -1", heard());
    mouse(event_type::leave, 0, 0);
    EXPECT_EQ("root 2 0", heard());
    mouse(event_type::leave, 0, 0);
    EXPECT_EQ("", heard());
}

TEST_F(hover_test, leaving_the_window_leaves_everything) {
    at(5, 5);
    mouse(event_type::leave, 90, 90);
    EXPECT_EQ("left 2 0, group 2 -1, root 2 -2, group 2 0, root 2 -1, root 2 0", heard());
    EXPECT_EQ(5, shown_in().get_last_point().x) << "leaving is not a position";
    EXPECT_EQ(4u, references(root.get()) + 2) << "the path is let go";
}

TEST_F(hover_test, moves_over_nothing_say_nothing) {
    move(500, 500);
    move(501, 501);
    EXPECT_EQ("", heard());
}

TEST_F(hover_test, true_does_not_end_leaving_and_entering) {
    at(5, 5);
    when("left 2 0", [] { return true; });
    when("root 0 -2", [] { return true; });
    move(25, 5);
    EXPECT_EQ("left 2 0, group 2 -1, root 2 -2, root 0 -2, group 0 -1, right 0 0", heard());
}

TEST_F(hover_test, true_ends_the_list_of_a_node_that_is_entered) {
    left->add_mouse_handler([this](INode*, int, input::mouse::event) { return say("second"); });
    when("left 0 0", [] { return true; });
    move(5, 5);
    EXPECT_EQ("root 0 0, root 0 -1, group 0 0, root 0 -2, group 0 -1, left 0 0", heard());
}

TEST_F(hover_test, events_carry_source_flags_and_points) {
    group->set_transform(translation_matrix(10, 10));
    for (const auto& each : {root, group, left, right}) {
        each->add_mouse_handler(nullptr);
        hear_mouse(each, words::all);
    }
    edge->on_mouse_event({event_type::move, input::mouse::button::middle, 9, {75, 70}, 120});
    EXPECT_EQ("root 0 0 of root at 75 70 flags 9 button -1 wheel 0", heard());
    mouse(event_type::move, 45, 12, 3);
    EXPECT_EQ(
        "root 0 -1 of group at 45 12 flags 3 button -1 wheel 0, "
        "group 0 0 of group at 35 2 flags 3 button -1 wheel 0, "
        "root 0 -2 of right at 45 12 flags 3 button -1 wheel 0, "
        "group 0 -1 of right at 35 2 flags 3 button -1 wheel 0, "
        "right 0 0 of right at 35 2 flags 3 button -1 wheel 0",
        heard());
    edge->on_mouse_event({event_type::move, input::mouse::button::left, 5, {46, 13}, 120});
    EXPECT_EQ(
        "root 1 -2 of right at 46 13 flags 5 button -1 wheel 0, "
        "group 1 -1 of right at 36 3 flags 5 button -1 wheel 0, "
        "right 1 0 of right at 36 3 flags 5 button -1 wheel 0, "
        "group 1 1 of right at 36 3 flags 5 button -1 wheel 0, "
        "root 1 2 of right at 46 13 flags 5 button -1 wheel 0",
        heard());
    mouse(event_type::leave, 46, 13, 6);
    EXPECT_EQ("right 2 0 of right at 0 0 flags 6 button -1 wheel 0", calls().front());
}

TEST_F(hover_test, other_events_do_not_move_the_hover_path) {
    at(5, 5);
    press(25, 5);
    static_cast<void>(heard());
    move(6, 6);
    EXPECT_EQ("root 1 -2, group 1 -1, left 1 0, group 1 1, root 1 2", heard());
}

TEST_F(hover_test, node_put_under_the_mouse_is_entered_with_the_next_move) {
    at(5, 5);
    const auto front = named("front", {0, 0, 20, 20}, group);
    hear_mouse(front, words::type);
    EXPECT_EQ("", heard());
    move(5, 5);
    EXPECT_EQ("left 2 0, group 2 -1, root 2 -2, root 0 -2, group 0 -1, front 0 0", heard());
}

// The rest of the mouse

TEST_F(hover_test, rest_is_routed_and_its_end_goes_to_the_same_node) {
    mouse(event_type::hover, 5, 5);
    EXPECT_EQ("root 8 -2, group 8 -1, left 8 0, group 8 1, root 8 2", heard());
    mouse(event_type::hover_end, 90, 90);
    EXPECT_EQ("root 9 -2, group 9 -1, left 9 0, group 9 1, root 9 2", heard());
    mouse(event_type::hover_end, 90, 90);
    EXPECT_EQ("root 9 -2, group 9 -1, left 9 0, group 9 1, root 9 2", heard()) << "the target stays";
    mouse(event_type::hover, 80, 80);
    static_cast<void>(heard());
    mouse(event_type::hover_end, 0, 0);
    EXPECT_EQ("root 9 0", heard());
}

TEST_F(hover_test, end_of_a_rest_that_never_was_says_nothing) {
    mouse(event_type::hover_end, 5, 5);
    EXPECT_EQ("", heard());
    mouse(event_type::hover, 500, 500);
    mouse(event_type::hover_end, 5, 5);
    EXPECT_EQ("", heard());
}

TEST_F(hover_test, rest_over_nothing_keeps_the_former_target) {
    mouse(event_type::hover, 5, 5);
    mouse(event_type::hover, 500, 500);
    static_cast<void>(heard());
    mouse(event_type::hover_end, 0, 0);
    EXPECT_EQ("root 9 -2, group 9 -1, left 9 0, group 9 1, root 9 2", heard());
}

TEST_F(hover_test, end_of_a_rest_has_no_point_and_ends_with_true) {
    mouse(event_type::hover, 5, 5);
    static_cast<void>(heard());
    hear_mouse(left, words::all);
    when("left 9 0 of left at 0 0 flags 8 button -1 wheel 0", [] { return true; });
    edge->on_mouse_event({event_type::hover_end, input::mouse::button::left, 8, {5, 5}, 120});
    EXPECT_EQ("root 9 -2, group 9 -1, left 9 0, left 9 0 of left at 0 0 flags 8 button -1 wheel 0", heard());
}

TEST_F(hover_test, end_of_a_rest_does_not_move_the_last_point) {
    mouse(event_type::hover, 5, 5, 7);
    mouse(event_type::hover_end, 90, 90, 1);
    EXPECT_EQ(5, shown_in().get_last_point().x);
}

TEST_F(hover_test, rest_that_a_handler_refuses_has_its_target_all_the_same) {
    when("root 8 -2", [] { return true; });
    mouse(event_type::hover, 5, 5);
    static_cast<void>(heard());
    mouse(event_type::hover_end, 0, 0);
    EXPECT_EQ("root 9 -2, group 9 -1, left 9 0, group 9 1, root 9 2", heard());
}

// Handlers that change the tree

TEST_F(hover_test, removal_of_the_node_that_is_left_changes_nothing_more) {
    at(5, 5);
    pass_after("left 2 0", [&] { group->remove_child(left); });
    move(25, 5);
    EXPECT_EQ("left 2 0, group 2 -1, root 2 -2, root 0 -2, group 0 -1, right 0 0", heard());
    EXPECT_EQ(1u, references(left.get()));
}

TEST_F(hover_test, removal_of_the_node_that_is_about_to_be_entered_does_not_leave_it_under_the_mouse) {
    at(5, 5);
    pass_after("left 2 0", [&] { group->remove_child(right); });
    move(25, 5);
    EXPECT_EQ("right 2 0", calls()[1]) << "the path has it already";
    EXPECT_EQ(1u, references(right.get())) << "nothing of the view holds it";
    move(26, 5);
    EXPECT_EQ("root 1 -1, group 1 0, root 1 1", heard());
}

TEST_F(hover_test, handler_that_moves_the_mouse_on_while_a_node_is_entered_leaves_a_path_that_holds) {
    pass_after("group 0 0", [&] { move(80, 80); });
    move(5, 5);
    static_cast<void>(heard());
    move(81, 81);
    EXPECT_EQ("root 1 0", heard()) << "the later position counts";
}

TEST_F(hover_test, handler_may_move_the_node_from_under_the_mouse) {
    at(25, 5);
    pass_after("left 0 0", [&] { left->set_transform(translation_matrix(60, 60)); });
    move(5, 5);
    static_cast<void>(heard());
    move(5, 6);
    EXPECT_EQ("left 2 0, group 2 -1, root 2 -2", heard());
}

TEST_F(hover_test, handler_may_let_go_of_the_view_while_nodes_are_entered) {
    pass_after("group 0 0", [&] {
        view->set_root(nullptr);
        edge->detach_site(&site);
        view.reset();
        edge.reset();
    });
    move(5, 5);
    EXPECT_EQ("left 0 0", calls().back()) << "the rest of the path still hears";
    view = create_view();
    edge = com::ptr<IViewLowerEdge>(view);
}

TEST_F(hover_test, throw_from_leave_or_enter_leaves_the_new_path_in_place) {
    for (const char* line : {"left 2 0", "right 0 0"}) {
        at(5, 5);
        when(line, []() -> bool { throw std::runtime_error("thrown by a handler"); });
        EXPECT_EQ("thrown by a handler", thrown_by<std::runtime_error>([&] { move(25, 5); }));
        EXPECT_EQ(line, calls().back());
        move(26, 6);
        EXPECT_EQ("root 1 -2, group 1 -1, right 1 0, group 1 1, root 1 2", heard());
    }
}

TEST_F(hover_test, handler_may_let_go_of_what_is_about_to_be_hovered_behind_a_removal) {
    const auto front = named("front", {0, 0, 20, 20}, group);
    at(5, 5);
    mouse(event_type::hover, 5, 5);
    static_cast<void>(heard());
    const com::weak_ptr<node> watched = &inside(left);
    pass_after("left 0 0", [&] { group->remove_child(std::exchange(left, nullptr)); });
    group->remove_child(front);
    EXPECT_FALSE(static_cast<bool>(watched.lock())) << "and it is not kept as the hovered node";
    static_cast<void>(heard());
    mouse(event_type::hover_end, 0, 0);
    EXPECT_EQ("", heard());
}

TEST_F(hover_test, handler_of_the_end_of_a_rest_may_put_the_removed_node_elsewhere) {
    const auto other = named("other", {60, 60, 90, 90}, root);
    const auto below = named("below", {0, 0, 5, 5}, left);
    at(15, 15);
    mouse(event_type::hover, 15, 15);
    pass_after("left 9 0", [&] {
        group->remove_child(left);
        other->add_child(left);
    });
    group->remove_child(left);
    EXPECT_EQ(other.get(), left->get_parent().get());
    EXPECT_EQ(&shown_in(), inside(left).view);
    EXPECT_EQ(&shown_in(), inside(below).view);
    EXPECT_TRUE(other->remove_child(left));
    EXPECT_EQ(nullptr, inside(below).view);
}

TEST_F(hover_test, handler_of_the_end_of_a_rest_may_take_the_root_that_nobody_else_holds) {
    const auto next = named("next", {0, 0, 10, 10}, nullptr);
    at(80, 80);
    mouse(event_type::hover, 80, 80);
    mouse(event_type::leave, 0, 0);
    static_cast<void>(heard());
    pass_after("root 9 0", [&] { view->set_root(nullptr); });
    root.reset();
    view->set_root(next);
    EXPECT_EQ("root 9 0", heard());
    EXPECT_EQ(&shown_in(), inside(next).view);
    root = next;
}

TEST_F(hover_test, root_that_a_handler_chooses_while_another_is_set_stays) {
    const auto next = named("next", {0, 0, 10, 10}, nullptr);
    const auto chosen = named("chosen", {0, 0, 10, 10}, nullptr);
    mouse(event_type::hover, 80, 80);
    pass_after("root 9 0", [&] { view->set_root(chosen); });
    view->set_root(next);
    EXPECT_EQ(&shown_in(), inside(chosen).view);
    EXPECT_EQ(nullptr, inside(next).view);
    EXPECT_EQ(nullptr, inside(root).view);
    view->set_root(next);
    EXPECT_EQ(nullptr, inside(chosen).view) << "no node is left with a view that does not show it";
}

}  // namespace
}  // namespace d2d::scene
