// Parents and children.

#include "scene/testing/tree_test.h"

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::references;
using fakes::same;
using fakes::thrown_by;

class node_tree : public fakes::tree_test {
protected:
    static std::vector<const INode*> children_of(const com::ptr<INode>& of) {
        std::vector<const INode*> result;
        for (const auto& child : inside(of).children) result.push_back(child.get());
        return result;
    }
};

TEST_F(node_tree, child_is_referenced_by_its_parent_but_not_the_other_way) {
    const auto child = create_node();
    root->add_child(child);
    EXPECT_EQ(2u, references(child.get()));
    EXPECT_EQ(1u, references(root.get()));
    EXPECT_EQ(root, child->get_parent());
    EXPECT_TRUE(root->remove_child(child));
    EXPECT_EQ(1u, references(child.get()));
    EXPECT_EQ(nullptr, child->get_parent());
}

TEST_F(node_tree, children_stand_in_the_order_of_their_adding) {
    const auto a = empty_below(root);
    const auto b = empty_below(root);
    const auto c = empty_below(root);
    EXPECT_EQ((std::vector<const INode*>{a.get(), b.get(), c.get()}), children_of(root));
    root->remove_child(b);
    EXPECT_EQ((std::vector<const INode*>{a.get(), c.get()}), children_of(root));
    root->add_child(b);
    EXPECT_EQ((std::vector<const INode*>{a.get(), c.get(), b.get()}), children_of(root));
}

TEST_F(node_tree, child_is_removed_wherever_it_stands) {
    for (std::size_t count = 1; count <= 6; ++count) {
        for (std::size_t place = 0; place < count; ++place) {
            const auto parent = empty_below(root);
            std::vector<com::ptr<INode>> children;
            for (std::size_t i = 0; i < count; ++i) children.push_back(empty_below(parent));
            EXPECT_TRUE(parent->remove_child(children[place]));
            EXPECT_EQ(nullptr, children[place]->get_parent());
            std::vector<const INode*> left;
            for (std::size_t i = 0; i < count; ++i) {
                if (i != place) left.push_back(children[i].get());
            }
            EXPECT_EQ(left, children_of(parent)) << place << " of " << count;
        }
    }
}

TEST_F(node_tree, adding_what_cannot_be_added_changes_nothing) {
    const auto child = empty_below(root);
    const auto grandchild = empty_below(child);
    const auto other = create_node();
    const auto other_view = create_view();
    const auto shown_elsewhere = create_node();
    other_view->set_root(shown_elsewhere);
    const auto add = [&](const com::ptr<INode>& to, const com::ptr<INode>& what) {
        return thrown_by([&] { to->add_child(what); });
    };
    EXPECT_EQ("unexpected", add(other, nullptr));
    EXPECT_EQ("unexpected", add(other, child)) << "it has a parent";
    EXPECT_EQ("unexpected", add(root, child)) << "even if it is this one";
    EXPECT_EQ("unexpected", add(other, shown_elsewhere)) << "it is a view's root";
    EXPECT_EQ("unexpected", add(other, other)) << "itself";
    EXPECT_EQ("unexpected", add(grandchild, root)) << "what it hangs in";
    EXPECT_TRUE(inside(other).children.empty());
    EXPECT_TRUE(inside(grandchild).children.empty());
    EXPECT_EQ(root, child->get_parent());
    EXPECT_EQ(nullptr, root->get_parent());
    EXPECT_EQ(nullptr, other->get_parent());
    EXPECT_EQ(2u, references(child.get()));
    EXPECT_EQ(1u, references(other.get()));
    other_view->set_root(nullptr);
}

TEST_F(node_tree, removing_what_is_no_child_says_so) {
    const auto child = empty_below(root);
    const auto grandchild = empty_below(child);
    EXPECT_FALSE(root->remove_child(create_node()));
    EXPECT_FALSE(root->remove_child(grandchild));
    EXPECT_FALSE(root->remove_child(root));
    EXPECT_FALSE(child->remove_child(root));
    EXPECT_EQ("unexpected", thrown_by([&] { root->remove_child(nullptr); }));
    EXPECT_EQ(2u, references(grandchild.get()));
    EXPECT_TRUE(root->remove_child(child));
    EXPECT_FALSE(root->remove_child(child));
}

TEST_F(node_tree, removing_from_an_inconsistent_tree_throws_and_changes_nothing) {
    const auto child = empty_below(root);
    child->set_transform_animation(still().get());
    inside(child).view = reinterpret_cast<scene::view*>(&site);
    EXPECT_EQ("unexpected", thrown_by([&] { root->remove_child(child); }));
    inside(child).view = nullptr;
    const auto stranger = create_node();
    inside(stranger).parent = &inside(root);
    EXPECT_EQ("not a child", thrown_by([&] { root->remove_child(stranger); }));
    inside(stranger).parent = nullptr;
    EXPECT_EQ(1, inside(root).animated_nodes);
    EXPECT_TRUE(root->remove_child(child));
    EXPECT_EQ(0, inside(root).animated_nodes);
}

TEST_F(node_tree, ancestor_is_asked_by_the_chain_of_parents) {
    const auto child = empty_below(root);
    const auto grandchild = empty_below(child);
    const auto sibling = empty_below(root);
    EXPECT_TRUE(root->is_ancestor_of(root));
    EXPECT_TRUE(root->is_ancestor_of(child));
    EXPECT_TRUE(root->is_ancestor_of(grandchild));
    EXPECT_FALSE(child->is_ancestor_of(root));
    EXPECT_FALSE(sibling->is_ancestor_of(grandchild));
    EXPECT_FALSE(root->is_ancestor_of(nullptr));
    EXPECT_FALSE(root->is_ancestor_of(create_node()));
}

TEST_F(node_tree, subtree_enters_and_leaves_a_view_as_a_whole) {
    const auto child = create_node();
    const auto grandchild = empty_below(child);
    show();
    root->add_child(child);
    const auto* const shown = inside(root).view;
    ASSERT_NE(nullptr, shown);
    EXPECT_EQ(shown, inside(child).view);
    EXPECT_EQ(shown, inside(grandchild).view);
    EXPECT_TRUE(root->remove_child(child));
    EXPECT_EQ(nullptr, inside(child).view);
    EXPECT_EQ(nullptr, inside(grandchild).view);
    EXPECT_EQ(shown, inside(root).view);
    EXPECT_EQ(child, grandchild->get_parent());
}

TEST_F(node_tree, dying_parent_frees_its_children) {
    const auto held = create_node();
    {
        const auto parent = create_node();
        parent->add_child(held);
        parent->add_child(create_node());  // held by nobody else: dies with it
        EXPECT_EQ(parent, held->get_parent());
    }
    EXPECT_EQ(nullptr, held->get_parent());
    EXPECT_EQ(1u, references(held.get()));
    root->add_child(held);
}

TEST_F(node_tree, deepest_tree_is_walked) {
    std::vector<com::ptr<INode>> way{root};
    while (way.size() < 32) way.push_back(empty_below(way.back()));
    record(way.back(), {0, 0, 10, 10});
    for (const auto& at : way) at->set_transform(translation_matrix(1, 2));
    show();
    EXPECT_TRUE(same({31, 62, 41, 72}, root->get_bounds(true)));
    EXPECT_EQ(65u, painted().size() - 1) << "a transform into and out of each, and the fill";
    edge->tick(1, 1);
    edge->on_mouse_event({input::mouse::event_type::move, std::nullopt, 0, {36, 68}, 0});
    EXPECT_TRUE(same(translation_matrix(32, 64), get_transformation_matrix(way.back().get(), nullptr)));
    root->clear();
    EXPECT_EQ(nullptr, way.back()->get_parent());
}

TEST_F(node_tree, clear_empties_a_node_and_all_below_it) {
    const com::ptr<IUnknown> object = create_node();
    const auto child = filled({0, 0, 10, 10}, root);
    const auto grandchild = filled({0, 0, 5, 5}, child);
    const auto shape = geometry({0, 0, 1, 1});
    int told = 0;
    for (const auto& each : {root, child, grandchild}) {
        each->set_user_value(7);
        each->set_user_object(object.get());
        each->set_hit_mode(2);
        each->set_clip_geometry(shape);
        each->set_clip_rect({1, 2, 3, 4});
        each->set_transform(translation_matrix(5, 5));
        each->add_bounds_handler([&](bool, D2D_RECT_F) { ++told; });
        each->add_mouse_handler([](INode*, int, input::mouse::event) { return true; });
        each->set_key_handler([](INode*, int, input::key::event) { return true; });
        each->set_char_handler([](INode*, int, wchar_t) { return true; });
        each->set_focus_handler(true, [](INode*, INode*) {});
        each->set_transform_animation(still().get());
        each->set_effect(com::create_object<fakes::test_effect>("effect").get());
    }
    told = 0;
    root->clear();
    EXPECT_EQ(1u, references(object.get()));
    EXPECT_EQ(0u, shape->references());
    EXPECT_EQ(0, told);
    for (const auto& each : {root, child, grandchild}) {
        const node& of = inside(each);
        EXPECT_EQ(2u, references(each.get())) << "the test's and the loop's";
        EXPECT_EQ(nullptr, each->get_parent());
        EXPECT_TRUE(of.children.empty());
        EXPECT_EQ(0, each->get_user_value());
        EXPECT_EQ(1, each->get_hit_mode());
        EXPECT_EQ(0, of.clip_flags);
        EXPECT_EQ(0, of.content_flags);
        EXPECT_EQ(0, of.animated_nodes);
        EXPECT_FALSE(of.transform_animation);
        EXPECT_FALSE(of.effect);
        EXPECT_TRUE(of.handlers.empty());
        EXPECT_TRUE(of.bounds_handlers.empty());
        EXPECT_FALSE(of.key_handler || of.char_handler || of.focus_handler);
        EXPECT_TRUE(same(identity_matrix, of.transform));
        EXPECT_TRUE(same(identity_matrix, of.inverse));
        EXPECT_TRUE(same({}, each->get_bounds(true)));
    }
}

TEST_F(node_tree, cleared_root_stays_in_its_view_and_can_be_drawn_on_again) {
    const auto child = filled({0, 0, 10, 10}, root);
    show();
    root->clear();
    EXPECT_EQ(lines{"invalidate_rect 0 0 10 10"}, calls());
    EXPECT_NE(nullptr, inside(root).view);
    EXPECT_EQ(nullptr, inside(child).view) << "held by somebody else, it is free";
    record(root, {1, 2, 3, 4});
    root->add_child(child);
    EXPECT_EQ((lines{"invalidate_rect 1 2 3 4", "invalidate_rect 0 0 0 0"}), calls());
    EXPECT_EQ(inside(root).view, inside(child).view);
}

TEST_F(node_tree, cleared_child_stays_where_it_is) {
    const auto child = filled({0, 0, 10, 10}, root);
    const auto grandchild = filled({0, 0, 50, 5}, child);
    const auto sibling = filled({20, 20, 30, 30}, root);
    child->set_transform(translation_matrix(100, 0));
    show();
    child->clear();
    EXPECT_EQ(root, child->get_parent());
    EXPECT_EQ((std::vector<const INode*>{child.get(), sibling.get()}), children_of(root));
    EXPECT_EQ(inside(root).view, inside(child).view);
    EXPECT_TRUE(same({20, 20, 30, 30}, root->get_bounds(true)));
    EXPECT_EQ(lines{"invalidate_rect 100 0 150 10"}, calls());
    EXPECT_EQ(nullptr, grandchild->get_parent());
    EXPECT_EQ(nullptr, inside(grandchild).view);
    child->clear();
    EXPECT_EQ(lines{}, calls()) << "nothing of it was shown any more";
}

TEST_F(node_tree, clear_releases_what_the_recordings_bound) {
    filled({0, 0, 10, 10}, filled({0, 0, 5, 5}, root));
    show();
    ASSERT_EQ(2, target.live_brushes());
    root->clear();
    EXPECT_EQ(0, target.live_brushes());
}

}  // namespace
}  // namespace d2d::scene
