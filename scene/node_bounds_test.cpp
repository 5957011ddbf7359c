// What a node covers, what it is hit on, and who is told.

#include "com/error.h"
#include "scene/testing/tree_test.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::call_text;
using fakes::same;

constexpr D2D_RECT_F no_rect{};

class node_bounds : public fakes::tree_test {
protected:
    INode::bounds_token tell(const com::ptr<INode>& of, std::string name,
                             std::function<void()> action = nullptr) {
        return of->add_bounds_handler(
            [this, name = std::move(name), action = std::move(action)](bool valid, D2D_RECT_F rect) {
                site.calls.push_back(call_text(name, valid, rect));
                if (action) action();
            });
    }
    static unsigned flags(const com::ptr<INode>& of) { return inside(of).content_flags; }
    static D2D_RECT_F hits(const com::ptr<INode>& of) { return inside(of).subtree_hit_bounds; }
};

TEST_F(node_bounds, recording_makes_the_bounds) {
    record(root, {1, 2, 3, 4});
    EXPECT_TRUE(same({1, 2, 3, 4}, root->get_bounds(false)));
    EXPECT_TRUE(same({1, 2, 3, 4}, root->get_bounds(true)));
    EXPECT_EQ(0x0Fu, flags(root));
    erase(root);
    EXPECT_TRUE(same(no_rect, root->get_bounds(false)));
    EXPECT_TRUE(same(no_rect, root->get_bounds(true)));
}

TEST_F(node_bounds, empty_rectangle_counts_once_it_is_there) {
    record(root, {5, 5, 5, 5});
    EXPECT_TRUE(same({5, 5, 5, 5}, root->get_bounds(true)));
    filled({20, 20, 20, 30}, root);
    EXPECT_TRUE(same({5, 5, 20, 30}, root->get_bounds(true)));
    EXPECT_EQ(0x0Fu, flags(root));
}

TEST_F(node_bounds, empty_child_below_an_empty_parent_leaves_it_empty) {
    const auto child = empty_below(root);
    EXPECT_EQ(0u, flags(root));
    EXPECT_EQ(0u, flags(child));
    EXPECT_TRUE(same(no_rect, root->get_bounds(true)));
}

TEST_F(node_bounds, children_count_in_the_space_of_their_parent) {
    record(root, {0, 0, 10, 10});
    const auto child = filled({0, 0, 5, 5}, root);
    child->set_transform(translation_matrix(100, -20));
    EXPECT_TRUE(same({0, -20, 105, 10}, root->get_bounds(true)));
    EXPECT_TRUE(same({0, 0, 10, 10}, root->get_bounds(false)));
    erase(root);
    EXPECT_TRUE(same({100, -20, 105, -15}, root->get_bounds(true)));
    EXPECT_TRUE(same(no_rect, root->get_bounds(false))) << "nothing of its own";
    root->remove_child(child);
    EXPECT_TRUE(same(no_rect, root->get_bounds(true)));
}

TEST_F(node_bounds, bounds_of_nested_turns_are_those_of_the_bounds_below) {
    const auto middle = empty_below(root);
    const auto inner = filled({0, 0, 2, 2}, middle);
    inner->set_transform({{{1, 1, -1, 1, 0, 0}}});
    middle->set_transform({{{1, 1, -1, 1, 0, 0}}});
    EXPECT_TRUE(same({-2, 0, 2, 4}, middle->get_bounds(true)));
    EXPECT_TRUE(same({-6, -2, 2, 6}, root->get_bounds(true))) << "wider than the square itself";
}

TEST_F(node_bounds, hit_modes_decide_what_a_node_is_hit_on) {
    record(root, {1, 2, 3, 4});
    const auto child = filled({0, 0, 50, 50}, root);
    EXPECT_TRUE(same({0, 0, 50, 50}, hits(root)));
    child->set_hit_mode(0);
    EXPECT_EQ(0x03u, flags(child));
    EXPECT_TRUE(same(no_rect, inside(child).hit_bounds));
    EXPECT_TRUE(same({1, 2, 3, 4}, hits(root)));
    child->set_hit_mode(2);
    EXPECT_TRUE(same(maximal_rect, inside(child).hit_bounds));
    EXPECT_TRUE(same(maximal_rect, hits(root)));
    root->set_hit_mode(0);
    EXPECT_EQ(0x03u, flags(root)) << "nothing below a transparent node is hit";
    root->set_hit_mode(1);
    child->set_hit_mode(1);
    EXPECT_TRUE(same({0, 0, 50, 50}, hits(root)));
    EXPECT_TRUE(same({0, 0, 50, 50}, root->get_bounds(true))) << "what is painted is the same all along";
}

TEST_F(node_bounds, clip_geometry_is_hit_in_the_place_of_the_recording) {
    record(root, {1, 2, 3, 4});
    root->set_clip_geometry(geometry({0, 0, 100, 100}));
    EXPECT_TRUE(same({0, 0, 100, 100}, hits(root)));
    EXPECT_TRUE(same({1, 2, 3, 4}, root->get_bounds(true)));
    record(root, {1, 2, 300, 400});
    EXPECT_TRUE(same({0, 0, 100, 100}, hits(root)));
    root->set_clip_geometry(nullptr);
    EXPECT_TRUE(same({1, 2, 300, 400}, hits(root)));
    root->set_hit_mode(2);
    root->set_clip_geometry(geometry({0, 0, 100, 100}));
    EXPECT_TRUE(same(maximal_rect, hits(root)));
    root->set_hit_mode(0);
    EXPECT_EQ(0x03u, flags(root));
}

TEST_F(node_bounds, clip_geometry_alone_is_hit_though_nothing_is_painted) {
    root->set_clip_geometry(geometry({0, 0, 100, 100}));
    EXPECT_EQ(0x0Cu, flags(root));
    EXPECT_TRUE(same(no_rect, root->get_bounds(true)));
}

TEST_F(node_bounds, emptied_node_keeps_its_hit_area_until_something_recomputes_it) {
    record(root, {1, 2, 3, 4});
    erase(root);
    EXPECT_EQ(0x0Cu, flags(root));
    EXPECT_TRUE(same({1, 2, 3, 4}, hits(root)));
    root->set_hit_mode(2);
    root->set_hit_mode(1);
    EXPECT_TRUE(same(maximal_rect, hits(root))) << "now that of the mode before is left over";
    root->set_clip_geometry(geometry({5, 5, 6, 6}));
    root->set_clip_geometry(nullptr);
    EXPECT_TRUE(same({5, 5, 6, 6}, hits(root))) << "and now that of the geometry";
    root->set_hit_mode(0);
    root->set_hit_mode(1);
    EXPECT_EQ(0u, flags(root)) << "a transparent one leaves nothing";
}

TEST_F(node_bounds, handlers_are_told_from_the_parent_up_and_then_the_node_itself) {
    const auto middle = empty_below(root);
    const auto leaf = empty_below(middle);
    const auto aside = filled({0, 0, 1, 1}, root);
    middle->set_transform(translation_matrix(10, 0));
    for (const auto& [of, name] :
         {std::pair{leaf, "leaf"}, {middle, "middle"}, {root, "root"}, {aside, "aside"}})
        tell(of, name);
    tell(middle, "again");
    record(leaf, {0, 0, 5, 5});
    EXPECT_EQ((lines{"middle 1 0 0 5 5", "again 1 0 0 5 5", "root 1 0 0 15 5", "leaf 1 0 0 5 5"}), calls());
    leaf->set_transform(translation_matrix(1, 1));
    EXPECT_EQ((lines{"middle 1 1 1 6 6", "again 1 1 1 6 6", "root 1 0 0 16 6"}), calls())
        << "the moved node's own space is where it was";
    middle->remove_child(leaf);
    EXPECT_EQ((lines{"middle 0 0 0 0 0", "again 0 0 0 0 0", "root 1 0 0 1 1"}), calls());
    root->add_child(leaf);
    EXPECT_EQ((lines{"root 1 0 0 6 6"}), calls());
    leaf->clear();
    EXPECT_EQ((lines{"root 1 0 0 1 1"}), calls()) << "the cleared node's own are gone";
}

TEST_F(node_bounds, handlers_are_not_told_where_nothing_changes) {
    record(root, {0, 0, 100, 100});
    tell(root, "root");
    const auto child = filled({0, 0, 5, 5}, root);
    child->set_transform(translation_matrix(50, 50));
    record(child, {1, 1, 2, 2});
    child->set_hit_mode(2);
    child->set_clip_geometry(geometry({0, 0, 500, 500}));
    root->remove_child(child);
    record(root, {0, 0, 100, 100});
    EXPECT_EQ(lines{}, calls());
}

TEST_F(node_bounds, presence_of_an_empty_rectangle_at_the_origin_is_a_change) {
    tell(root, "root");
    record(root, {0, 0, 0, 0});
    EXPECT_EQ(lines{"root 1 0 0 0 0"}, calls());
    erase(root);
    EXPECT_EQ(lines{"root 0 0 0 0 0"}, calls());
}

TEST_F(node_bounds, removed_handler_is_not_told_any_more) {
    const auto first = tell(root, "first");
    tell(root, "second");
    root->remove_bounds_handler(first);
    root->remove_bounds_handler(nullptr);
    record(root, {0, 0, 1, 1});
    EXPECT_EQ(lines{"second 1 0 0 1 1"}, calls());
}

TEST_F(node_bounds, handler_sees_its_node_with_the_new_bounds_and_those_above_with_the_old) {
    const auto child = empty_below(root);
    const auto leaf = empty_below(child);
    std::string seen;
    tell(child, "child",
         [&] { seen = call_text(child->get_bounds(true)) + " in " + call_text(root->get_bounds(true)); });
    record(leaf, {1, 2, 3, 4});
    EXPECT_EQ("1 2 3 4 in 0 0 0 0", seen);
}

TEST_F(node_bounds, empty_handler_throws_and_those_above_heal_with_the_next_change) {
    const auto middle = empty_below(root);
    const auto leaf = empty_below(middle);
    tell(middle, "first");
    const auto empty = middle->add_bounds_handler(nullptr);
    tell(middle, "behind");
    tell(root, "root");
    EXPECT_THROW(record(leaf, {0, 0, 5, 5}), std::bad_function_call);
    EXPECT_EQ(lines{"first 1 0 0 5 5"}, calls());
    EXPECT_TRUE(same({0, 0, 5, 5}, leaf->get_bounds(true)));
    EXPECT_TRUE(same({0, 0, 5, 5}, middle->get_bounds(true)));
    EXPECT_TRUE(same(no_rect, root->get_bounds(true)));
    middle->remove_bounds_handler(empty);
    record(leaf, {0, 0, 5, 5});  // the same: what it changes is above
    EXPECT_EQ(lines{"root 1 0 0 5 5"}, calls());
    EXPECT_TRUE(same({0, 0, 5, 5}, hits(middle)));
    EXPECT_TRUE(same({0, 0, 5, 5}, hits(root)));
}

TEST_F(node_bounds, throw_during_a_move_heals_with_the_next_move) {
    const auto middle = empty_below(root);
    const auto leaf = filled({0, 0, 5, 5}, middle);
    const auto empty = middle->add_bounds_handler(nullptr);
    EXPECT_THROW(leaf->set_transform(translation_matrix(10, 0)), std::bad_function_call);
    middle->remove_bounds_handler(empty);
    leaf->set_transform(translation_matrix(20, 0));
    EXPECT_TRUE(same({20, 0, 25, 5}, middle->get_bounds(true)));
    EXPECT_TRUE(same({20, 0, 25, 5}, root->get_bounds(true)));
    EXPECT_TRUE(same({20, 0, 25, 5}, hits(root)));
}

TEST_F(node_bounds, handler_may_take_its_own_node_away_with_its_last_reference) {
    record(root, {0, 0, 1, 1});
    auto middle = empty_below(root);
    const auto leaf = empty_below(middle);
    tell(middle, "middle", [this, bottom = &inside(middle)] { root->remove_child(bottom); });
    middle.reset();
    record(leaf, {0, 0, 50, 50});
    EXPECT_EQ(nullptr, leaf->get_parent()) << "freed by the parent that died";
    EXPECT_TRUE(inside(root).children.empty());
    EXPECT_TRUE(same({0, 0, 1, 1}, root->get_bounds(true)));
    EXPECT_TRUE(same({0, 0, 1, 1}, hits(root)));
}

TEST_F(node_bounds, handler_may_take_away_the_child_that_is_being_added) {
    const auto child = filled({0, 0, 50, 50});
    child->set_transform_animation(still().get());
    tell(root, "root", [&] { root->remove_child(child); });
    root->add_child(child);
    EXPECT_EQ(nullptr, child->get_parent());
    EXPECT_EQ(0, inside(root).animated_nodes);
    EXPECT_TRUE(same(no_rect, root->get_bounds(true)));
}

TEST_F(node_bounds, handler_may_move_the_node_that_it_is_on) {
    // A layout that keeps a group at the right of its parent.
    const auto group = empty_below(root);
    const auto leaf = empty_below(group);
    tell(group, "group",
         [&] { group->set_transform(translation_matrix(100 - group->get_bounds(true).right, 0)); });
    for (const float width : {10.0f, 60.0f, 20.0f, 5.0f}) {
        record(leaf, {0, 0, width, 10});
        EXPECT_TRUE(same({100 - width, 0, 100, 10}, root->get_bounds(true)));
        EXPECT_TRUE(same({100 - width, 0, 100, 10}, hits(root)));
    }
}

TEST_F(node_bounds, failing_bounds_of_a_clip_geometry_pass_on_and_nothing_has_changed) {
    const auto child = empty_below(root);
    const auto shape = geometry({0, 0, 5, 5});
    child->set_clip_geometry(shape);
    record(child, {0, 0, 100, 100});
    shape->result = E_FAIL;
    EXPECT_THROW(record(child, {10, 10, 20, 20}), com::error);
    EXPECT_TRUE(same({0, 0, 100, 100}, child->get_bounds(true)));
    child->set_clip_geometry(nullptr);
    EXPECT_THROW(child->set_clip_geometry(shape), com::error);
    EXPECT_EQ(nullptr, child->get_clip_geometry());
    shape->result = S_OK;
    record(child, {30, 30, 40, 40});
    EXPECT_TRUE(same({30, 30, 40, 40}, root->get_bounds(true)));
    EXPECT_TRUE(same({30, 30, 40, 40}, hits(root)));
}

}  // namespace
}  // namespace d2d::scene
