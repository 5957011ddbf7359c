#include "com/error.h"
#include "scene/testing/scene_test.h"

#include <algorithm>

namespace d2d::scene {
namespace {

using fakes::test_effect;

class foreign_effect : public com::base_object<com::object_base, IEffect> {
protected:
    ~foreign_effect() = default;
};

class node_effect : public fakes::scene_test {
protected:
    void SetUp() override {
        scene_test::SetUp();
        a = com::create_object<test_effect>("a", host_log());
        b = com::create_object<test_effect>("b", host_log());
        child = create_node();
        child->set_transform({{{1, 0, 0, 1, 10, 20}}});
        fill(child, {0, 0, 30, 40});
        root->add_child(child);
    }
    void TearDown() override {
        child.reset();
        a.reset();
        b.reset();
        scene_test::TearDown();
    }

    com::ptr<test_effect> a;
    com::ptr<test_effect> b;
    com::ptr<INode> child;
};

TEST_F(node_effect, is_stored_without_damage_outside_a_view) {
    child->set_effect(a.get());
    child->set_effect(b.get());
    child->set_effect(nullptr);
    child->set_effect(a.get());
    EXPECT_EQ(lines{}, site.calls);
    EXPECT_FALSE(inside(child).effect_binding);
    show();
    EXPECT_TRUE(inside(child).effect_binding);
}

TEST_F(node_effect, is_stored_without_damage_in_a_view_without_a_target) {
    view->set_root(root);
    child->set_effect(a.get());
    EXPECT_EQ(lines{}, site.take_calls());
    edge->attach_render_target(&target);
    EXPECT_EQ(lines{"materialize a"}, site.take_calls());
    edge->detach_render_target(&target);
    EXPECT_EQ(lines{"dematerialize a"}, site.take_calls());
    EXPECT_FALSE(inside(child).effect_binding);
    child->set_effect(nullptr);
    EXPECT_EQ(lines{}, site.take_calls());
}

TEST_F(node_effect, comes_with_the_damage_of_the_content) {
    show();
    child->set_effect(a.get());
    EXPECT_EQ((lines{"materialize a", "invalidate_rect 10 20 40 60"}), site.take_calls());
}

TEST_F(node_effect, is_replaced_with_the_damage_of_both) {
    show();
    child->set_effect(a.get());
    forget();
    child->set_effect(b.get());
    const lines calls = site.take_calls();
    EXPECT_EQ(2, std::count(calls.begin(), calls.end(), "invalidate_rect 10 20 40 60"));
    EXPECT_EQ(1, std::count(calls.begin(), calls.end(), "materialize b"));
    EXPECT_EQ(1, std::count(calls.begin(), calls.end(), "dematerialize a"));
    EXPECT_EQ(4u, calls.size());
    EXPECT_EQ("invalidate_rect 10 20 40 60", calls.back());
}

TEST_F(node_effect, set_again_is_invalidated_once_and_keeps_its_device_object) {
    show();
    child->set_effect(a.get());
    forget();
    child->set_effect(a.get());
    EXPECT_EQ(lines{"invalidate_rect 10 20 40 60"}, site.take_calls());
    EXPECT_TRUE(inside(child).effect_binding);
}

TEST_F(node_effect, goes_with_the_damage_of_the_content) {
    show();
    child->set_effect(a.get());
    forget();
    child->set_effect(nullptr);
    EXPECT_EQ((lines{"invalidate_rect 10 20 40 60", "dematerialize a"}), site.take_calls());
    child->set_effect(nullptr);
    EXPECT_EQ(lines{}, site.take_calls());
}

TEST_F(node_effect, damages_the_content_only_and_not_the_children) {
    fill(root, {1, 2, 3, 4});
    show();
    root->set_effect(a.get());
    EXPECT_EQ((lines{"materialize a", "invalidate_rect 1 2 3 4"}), site.take_calls());
}

TEST_F(node_effect, is_bound_as_its_node_comes_and_goes) {
    child->set_effect(a.get());
    show();
    root->remove_child(child);
    EXPECT_EQ((lines{"invalidate_rect 10 20 40 60", "dematerialize a"}), site.take_calls());
    root->add_child(child);
    EXPECT_EQ((lines{"materialize a", "invalidate_rect 10 20 40 60"}), site.take_calls());
}

TEST_F(node_effect, goes_as_its_node_is_cleared) {
    show();
    child->set_effect(a.get());
    forget();
    child->clear();
    EXPECT_EQ((lines{"invalidate_rect 10 20 40 60", "dematerialize a"}), site.take_calls());
    fill(child, {0, 0, 5, 5}, blue);
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 5 5) brush(0 0 1 1)"}),
              painted());
}

TEST_F(node_effect, is_shared_by_the_nodes_of_a_view) {
    show();
    child->set_effect(a.get());
    root->set_effect(a.get());
    EXPECT_EQ(1, std::count(site.calls.begin(), site.calls.end(), "materialize a"));
    EXPECT_EQ(inside(root).effect_binding.get(), inside(child).effect_binding.get());
}

TEST_F(node_effect, of_another_make_is_refused) {
    const auto foreign = com::create_object<foreign_effect>();
    show();
    child->set_effect(a.get());
    forget();
    EXPECT_THROW(child->set_effect(foreign.get()), com::error);
    EXPECT_EQ(lines{}, site.take_calls());
    EXPECT_TRUE(inside(child).effect_binding);
}

TEST_F(node_effect, that_cannot_be_made_leaves_the_node_as_it_was) {
    show();
    b->creation_result = E_OUTOFMEMORY;
    EXPECT_THROW(child->set_effect(b.get()), com::error);
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "SetTransform 1 0 0 1 10 20",
                     "FillGeometry rectangle(0 0 30 40) brush(1 0 0 1)", "SetTransform 1 0 0 1 0 0"}),
              painted());
    child->set_effect(a.get());
    const auto* const binding = inside(child).effect_binding.get();
    EXPECT_THROW(child->set_effect(b.get()), com::error);
    EXPECT_EQ(binding, inside(child).effect_binding.get());
}

}  // namespace
}  // namespace d2d::scene
