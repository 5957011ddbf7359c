// One step of a view's animations: which nodes it asks, what it repaints, and the clock behind it.

#include "scene/testing/input_test.h"
#include "scene/view.h"

#include <limits>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::call_text;
using fakes::same;
using fakes::test_animation;
using fakes::thrown_by;

const std::string clock_on = "set_animation_clock 0 0.05000000074505806";
const std::string clock_off = "set_animation_clock 0 0";

class animation_step_test : public fakes::input_test {
protected:
    /// Says "<name> at <time>" for each value that it is asked for.
    void animate(const com::ptr<INode>& node, test_animation::function value = {}) {
        const auto ask = [this, own = name_of(node.get()), value](double time) {
            static_cast<void>(say(call_text(own, "at", time)));
            return value ? value(time) : translation_matrix(static_cast<float>(time), 0);
        };
        node->set_transform_animation(com::create_object<test_animation>(ask).get());
    }
    com::ptr<INode> blinking(std::string called, const D2D_RECT_F& rect, const com::ptr<INode>& parent) {
        auto made = named(std::move(called), rect, parent);
        record(made, rect, true);
        return made;
    }
    void tick(float time) { edge->tick(time, 0.05f); }
};

TEST_F(animation_step_test, nothing_animated_is_asked_and_repainted_nothing) {
    record(root, {0, 0, 10, 10});
    show();
    tick(1);
    EXPECT_EQ("", heard());
}

TEST_F(animation_step_test, value_is_asked_with_the_time_widened_and_not_ahead_of_the_first_step) {
    const auto leaf = named("leaf", {0, 0, 10, 10}, root);
    show();
    animate(leaf, [](double) { return translation_matrix(5, 0); });
    EXPECT_EQ(clock_on, heard());
    EXPECT_TRUE(same(identity_matrix, leaf->get_transform()));
    tick(0.1f);
    EXPECT_EQ("leaf at 0.10000000149011612, invalidate_rect 0 0 10 10, invalidate_rect 5 0 15 10", heard());
    EXPECT_TRUE(same({0, 0, 15, 10}, D2D_RECT_F{0, 0, root->get_bounds(true).right, 10}));
}

TEST_F(animation_step_test, only_branches_with_something_animated_are_walked) {
    const auto still = named("still", {0, 0, 10, 10}, root);
    const auto deep = named("deep", {0, 0, 10, 10}, still);
    const auto moving = named("moving", {0, 0, 10, 10}, root);
    animate(moving);
    show();
    // Would be found by a walk that went there: it claims what no one above it knows.
    inside(deep).content_flags |= node::content_animated;
    tick(1);
    EXPECT_EQ("moving at 1, invalidate_rect 0 0 10 10, invalidate_rect 1 0 11 10", heard());
    inside(deep).content_flags &= static_cast<std::uint8_t>(~node::content_animated);
}

TEST_F(animation_step_test, what_paints_anew_is_one_rectangle_of_its_content_alone) {
    root->set_transform(translation_matrix(1000, 0));
    const auto outer = named("outer", {0, 0, 500, 500}, root);
    outer->set_transform({{{2, 0, 0, 2, 10, 10}}});
    const auto first = blinking("first", {0, 0, 5, 5}, outer);
    named("wide", {0, 0, 300, 300}, first);
    const auto second = blinking("second", {0, 0, 1, 1}, first);
    second->set_transform(translation_matrix(20, 30));
    show();
    tick(1);
    EXPECT_EQ("invalidate_rect 1010 10 1052 72", heard());
}

TEST_F(animation_step_test, move_counts_for_what_paints_anew_in_the_same_step) {
    const auto carrier = named("carrier", {0, 0, 1, 1}, root);
    const auto leaf = blinking("leaf", {0, 0, 5, 5}, carrier);
    animate(carrier);
    show();
    tick(100);
    EXPECT_EQ(
        "carrier at 100, invalidate_rect 0 0 5 5, invalidate_rect 100 0 105 5, invalidate_rect 100 0 105 5",
        heard());
}

TEST_F(animation_step_test, parents_move_ahead_of_their_children_and_siblings_in_order) {
    const auto first = named("first", {0, 0, 1, 1}, root);
    const auto inner = named("inner", {0, 0, 1, 1}, first);
    const auto second = named("second", {0, 0, 1, 1}, root);
    for (const auto& each : {second, inner, root, first}) animate(each);
    view->set_root(root);
    tick(2);
    EXPECT_EQ("root at 2, first at 2, inner at 2, second at 2", heard());
    EXPECT_EQ(2, inner->get_transform()._31);
}

TEST_F(animation_step_test, value_that_undoes_the_present_transform_is_not_taken) {
    const auto leaf = named("leaf", {0, 0, 1, 1}, root);
    leaf->set_transform(translation_matrix(5, 5));
    animate(leaf, [](double) { return translation_matrix(-5, -5); });
    show();
    tick(1);
    EXPECT_EQ("leaf at 1", heard());
    EXPECT_EQ(5, leaf->get_transform()._31);
}

TEST_F(animation_step_test, bad_matrix_throws_out_of_the_step_and_the_next_step_goes_on) {
    const auto leaf = named("leaf", {0, 0, 1, 1}, root);
    const auto behind = named("behind", {0, 0, 1, 1}, root);
    D2D_MATRIX_3X2_F value = identity_matrix;
    animate(leaf, [&](double) { return value; });
    animate(behind);
    view->set_root(root);
    value._11 = 0;
    EXPECT_EQ("unable to invert transform received by d2d::scene::INode", thrown_by([&] { tick(1); }));
    value._11 = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ("invalid transform received by d2d::scene::INode", thrown_by([&] { tick(2); }));
    value._11 = 2;
    EXPECT_EQ("leaf at 1, leaf at 2", heard());
    tick(3);
    EXPECT_EQ("leaf at 3, behind at 3", heard());
    EXPECT_EQ(2, leaf->get_transform()._11);
}

TEST_F(animation_step_test, animation_may_throw) {
    const auto leaf = named("leaf", {0, 0, 1, 1}, root);
    animate(leaf);
    view->set_root(root);
    when("leaf at 1", []() -> bool { throw std::runtime_error("thrown by an animation"); });
    EXPECT_EQ("thrown by an animation", thrown_by<std::runtime_error>([&] { tick(1); }));
    tick(2);
    EXPECT_EQ(2, leaf->get_transform()._31);
}

// The tree changes within a step

TEST_F(animation_step_test, node_that_goes_in_its_step_does_not_hide_the_next) {
    auto first = named("first", {0, 0, 1, 1}, root);
    const auto second = named("second", {0, 0, 1, 1}, root);
    const auto third = named("third", {0, 0, 1, 1}, root);
    for (const auto& each : {first, second, third}) animate(each);
    view->set_root(root);
    pass_after("first at 1", [&] { root->remove_child(std::exchange(first, nullptr)); });
    tick(1);
    EXPECT_EQ("first at 1, second at 1, third at 1", heard());
    pass_after("third at 2", [&] { root->remove_child(second); });
    tick(2);
    EXPECT_EQ("second at 2, third at 2", heard());
    tick(3);
    EXPECT_EQ("third at 3", heard());
}

TEST_F(animation_step_test, node_added_in_a_step_behind_it_moves_in_the_same_step) {
    const auto first = named("first", {0, 0, 1, 1}, root);
    animate(first);
    const auto added = create_node();
    name(added, "added");
    animate(added);
    view->set_root(root);
    pass_after("first at 1", [&] { root->add_child(added); });
    tick(1);
    EXPECT_EQ("first at 1, added at 1", heard());
}

TEST_F(animation_step_test, bounds_handler_may_empty_the_tree_in_a_step) {
    const auto group = named("group", {0, 0, 1, 1}, root);
    const auto leaf = named("leaf", {0, 0, 1, 1}, group);
    const auto behind = named("behind", {0, 0, 1, 1}, group);
    animate(leaf);
    animate(behind);
    show();
    group->add_bounds_handler([&](bool, D2D_RECT_F) { root->clear(); });
    tick(5);
    EXPECT_EQ(nullptr, inside(leaf).parent);
    EXPECT_EQ(0.0, site.clock_interval);
    EXPECT_EQ("leaf at 5, invalidate_rect 0 0 1 1, invalidate_rect 0 0 1 1, " + clock_off, heard());
}

TEST_F(animation_step_test, animation_may_let_go_of_the_view) {
    blinking("leaf", {0, 0, 1, 1}, root);
    animate(root);
    view->set_root(root);
    static_cast<void>(heard());
    pass_after("root at 1", [&] {
        view->set_root(nullptr);
        edge->detach_site(&site);
        view.reset();
        edge.reset();
    });
    tick(1);
    EXPECT_EQ("root at 1", heard());
    view = create_view();
    edge = com::ptr<IViewLowerEdge>(view);
}

// The clock

TEST_F(animation_step_test, clock_follows_the_first_and_the_last_animation_of_a_shown_tree) {
    const auto first = named("first", {0, 0, 1, 1}, root);
    const auto second = named("second", {0, 0, 1, 1}, first);
    show();
    animate(first);
    EXPECT_EQ(clock_on, heard());
    animate(second);
    animate(first);
    first->set_transform_animation(nullptr);
    EXPECT_EQ("", heard());
    second->set_transform_animation(nullptr);
    EXPECT_EQ(clock_off, heard());
    second->set_transform_animation(nullptr);
    EXPECT_EQ("", heard());
}

TEST_F(animation_step_test, clock_follows_nodes_that_come_and_go) {
    const auto group = named("group", {0, 0, 1, 1}, nullptr);
    const auto leaf = blinking("leaf", {0, 0, 1, 1}, group);
    show();
    root->add_child(group);
    EXPECT_EQ(clock_on + ", invalidate_rect 0 0 1 1", heard());
    root->remove_child(group);
    EXPECT_EQ("invalidate_rect 0 0 1 1, " + clock_off, heard());
    EXPECT_EQ(0.0, site.clock_interval);
}

TEST_F(animation_step_test, clock_stops_within_the_step_that_takes_the_last_animation_off) {
    const auto leaf = named("leaf", {0, 0, 1, 1}, root);
    animate(leaf, [](double) { return identity_matrix; });
    show();
    pass_after("leaf at 1", [&] { leaf->set_transform_animation(nullptr); });
    tick(1);
    EXPECT_EQ("leaf at 1, " + clock_off, heard());
    tick(2);
    EXPECT_EQ("", heard());
}

TEST_F(animation_step_test, animation_set_without_a_view_or_target_tells_the_next_target_once) {
    animate(root);
    view->set_root(root);
    EXPECT_EQ("", heard());
    edge->attach_render_target(&target);
    EXPECT_EQ(clock_on, heard());
    edge->detach_render_target(&target);
    EXPECT_EQ(clock_off, heard());
    root->set_transform_animation(nullptr);
    edge->attach_render_target(&target);
    EXPECT_EQ("", heard());
}

}  // namespace
}  // namespace d2d::scene
