// What a node stores for its owner, and its life.

#include "com/error.h"
#include "scene/testing/tree_test.h"

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

using fakes::references;
using fakes::same;
using fakes::thrown_by;

constexpr D2D_RECT_F no_rect{};

class node_test : public fakes::tree_test {};

TEST_F(node_test, new_node_is_free_and_empty) {
    const auto made = create_node();
    EXPECT_EQ(1u, references(made.get()));
    EXPECT_EQ(0, made->get_user_value());
    EXPECT_EQ(nullptr, made->get_user_object());
    EXPECT_EQ(1, made->get_hit_mode());
    EXPECT_FALSE(made->is_hit_transparent());
    EXPECT_EQ(nullptr, made->get_clip_geometry());
    EXPECT_EQ(nullptr, made->get_parent());
    EXPECT_TRUE(same(no_rect, made->get_bounds(true)));
    EXPECT_TRUE(same(no_rect, made->get_bounds(false)));
    EXPECT_TRUE(same(identity_matrix, made->get_transform()));
    EXPECT_FALSE(made->has_focus(false));
    EXPECT_FALSE(made->has_focus(true));
    EXPECT_FALSE(made->hit_test({0, 0}));
    const node& of = inside(made);
    EXPECT_EQ(nullptr, of.view);
    EXPECT_EQ(0, of.clip_flags);
    EXPECT_EQ(0, of.content_flags);
    EXPECT_EQ(0, of.animated_nodes);
    EXPECT_TRUE(same(identity_matrix, of.inverse));
    EXPECT_TRUE(of.children.empty());
}

TEST_F(node_test, user_value_is_stored) {
    root->set_user_value(-7);
    EXPECT_EQ(-7, root->get_user_value());
}

TEST_F(node_test, user_object_is_kept_and_the_previous_one_handed_back) {
    const com::ptr<IUnknown> first = create_node();
    const com::ptr<IUnknown> second = create_node();
    EXPECT_EQ(nullptr, root->set_user_object(first.get()));
    EXPECT_EQ(2u, references(first.get()));
    EXPECT_EQ(first, root->get_user_object());
    {
        const auto previous = root->set_user_object(second.get());
        EXPECT_EQ(first, previous);
        EXPECT_EQ(2u, references(first.get())) << "the node's reference was handed over";
    }
    EXPECT_EQ(1u, references(first.get()));
    EXPECT_EQ(second, root->set_user_object(second.get()));
    EXPECT_EQ(2u, references(second.get()));
    EXPECT_EQ(second, root->set_user_object(nullptr));
    EXPECT_EQ(1u, references(second.get()));
    EXPECT_EQ(nullptr, root->get_user_object());
}

TEST_F(node_test, user_object_goes_with_the_node) {
    const com::ptr<IUnknown> object = create_node();
    create_node()->set_user_object(object.get());
    EXPECT_EQ(1u, references(object.get()));
}

TEST_F(node_test, hit_mode_hands_back_the_previous_one) {
    EXPECT_EQ(1, root->set_hit_mode(2));
    EXPECT_EQ(2, root->set_hit_mode(0));
    EXPECT_TRUE(root->is_hit_transparent());
    EXPECT_EQ(0, root->set_hit_mode(0));
    EXPECT_EQ(0, root->set_hit_mode(1));
    EXPECT_EQ(1, root->get_hit_mode());
}

TEST_F(node_test, hit_transparency_tells_whether_it_was_there) {
    EXPECT_FALSE(root->set_hit_transparent(true));
    EXPECT_EQ(0, root->get_hit_mode());
    EXPECT_TRUE(root->set_hit_transparent(true));
    EXPECT_TRUE(root->set_hit_transparent(false));
    EXPECT_EQ(1, root->get_hit_mode());
    root->set_hit_mode(2);
    EXPECT_FALSE(root->set_hit_transparent(false));
    EXPECT_EQ(1, root->get_hit_mode()) << "a solid node becomes one that is hit by content";
}

TEST_F(node_test, hit_mode_is_fixed_in_a_view_even_if_it_is_the_same) {
    constexpr const char* text = "Modifying hit transparency while in a view is currently not supported.";
    const auto child = empty_below(root);
    view->set_root(root);  // without a target
    for (INode* of : {root.get(), child.get()}) {
        EXPECT_EQ(text, thrown_by([&] { of->set_hit_mode(1); }));
        EXPECT_EQ(text, thrown_by([&] { of->set_hit_mode(2); }));
        EXPECT_EQ(text, thrown_by([&] { of->set_hit_transparent(false); }));
        EXPECT_EQ(1, of->get_hit_mode());
    }
    view->set_root(nullptr);
    EXPECT_EQ(1, child->set_hit_mode(2));
}

TEST_F(node_test, clip_geometry_is_kept_and_the_previous_one_handed_back) {
    const auto first = geometry({1, 2, 3, 4});
    EXPECT_EQ(nullptr, root->set_clip_geometry(first));
    EXPECT_EQ(first, root->get_clip_geometry());
    EXPECT_EQ(1u, first->references());
    EXPECT_TRUE(first->got_matrix) << "bounds are asked for with the identity";
    const auto second = geometry({5, 6, 7, 8});
    EXPECT_EQ(first, root->set_clip_geometry(second));
    EXPECT_EQ(0u, first->references());
    EXPECT_EQ(second, root->set_clip_geometry(second));
    EXPECT_EQ(1u, second->references());
    EXPECT_EQ(second, root->set_clip_geometry(nullptr));
    EXPECT_EQ(nullptr, root->get_clip_geometry());
}

TEST_F(node_test, same_clip_geometry_again_asks_it_nothing) {
    const auto shape = geometry({1, 2, 3, 4});
    root->set_clip_geometry(shape);
    shape->bounds = {0, 0, 9, 9};
    root->set_clip_geometry(shape);
    EXPECT_TRUE(same({1, 2, 3, 4}, inside(root).hit_bounds));
}

TEST_F(node_test, clip_geometry_may_be_set_in_a_view) {
    show();
    root->set_clip_geometry(geometry({1, 2, 3, 4}));
    EXPECT_TRUE(same({1, 2, 3, 4}, inside(root).subtree_hit_bounds));
    EXPECT_EQ(lines{}, calls()) << "nothing is painted by it";
}

TEST_F(node_test, same_hit_mode_again_asks_the_clip_geometry_nothing) {
    const auto shape = geometry({1, 2, 3, 4});
    root->set_clip_geometry(shape);
    shape->bounds = {0, 0, 9, 9};
    EXPECT_EQ(1, root->set_hit_mode(1));
    EXPECT_TRUE(same({1, 2, 3, 4}, inside(root).hit_bounds));
    root->set_hit_mode(2);
    root->set_hit_mode(1);
    EXPECT_TRUE(same({0, 0, 9, 9}, inside(root).hit_bounds)) << "another mode does ask";
}

TEST_F(node_test, failure_to_tell_the_bounds_of_a_clip_geometry_passes_on) {
    const auto shape = geometry({1, 2, 3, 4});
    shape->result = E_FAIL;
    EXPECT_THROW(root->set_clip_geometry(shape), com::error);
    EXPECT_EQ(0, inside(root).content_flags);
    EXPECT_EQ(nullptr, root->get_clip_geometry());
}

TEST_F(node_test, clip_rect_changes_no_bounds_and_invalidates_nothing) {
    record(root, {0, 0, 100, 100});
    show();
    root->set_clip_rect({10, 10, 20, 20});
    EXPECT_EQ(node::has_clip, inside(root).clip_flags);
    EXPECT_TRUE(same({10, 10, 20, 20}, inside(root).clip_rect));
    EXPECT_TRUE(same({0, 0, 100, 100}, root->get_bounds(true)));
    root->clear_clip_rect();
    EXPECT_EQ(0, inside(root).clip_flags);
    EXPECT_EQ(lines{}, calls());
}

TEST_F(node_test, clip_and_transform_flags_do_not_touch_each_other) {
    root->set_clip_rect({10, 10, 20, 20});
    root->set_transform(translation_matrix(5, 5));
    EXPECT_EQ(node::has_clip | node::has_transform, inside(root).clip_flags);
    root->clear_clip_rect();
    EXPECT_EQ(node::has_transform, inside(root).clip_flags);
    root->set_clip_rect({10, 10, 20, 20});
    root->set_transform(identity_matrix);
    EXPECT_EQ(node::has_clip, inside(root).clip_flags);
}

TEST_F(node_test, answers_to_its_interfaces_with_one_identity) {
    const auto identity_of = [](IUnknown* of) {
        com::ptr<IUnknown> result;
        EXPECT_EQ(S_OK, of->QueryInterface(com::guid_of<IUnknown>(), result.put_void()));
        return result;
    };
    const com::ptr<IUnknown> identity = identity_of(root.get());
    EXPECT_EQ(static_cast<IUnknown*>(root.get()), identity.get());
    const com::ptr<IVisual::ISite> site_of_visuals = root;
    const com::ptr<IServiceProvider> services = root;
    EXPECT_EQ(identity, identity_of(site_of_visuals.get()));
    EXPECT_EQ(identity, identity_of(services.get()));
    const com::ptr<com::IObjectInternal<node>> internal(root);
    EXPECT_EQ(identity, identity_of(internal.get()));
    EXPECT_TRUE(com::same_guid(com::guid("D50641C4-A367-410E-962E-8107F7DB00CB"),
                               com::guid_of<com::IObjectInternal<node>>()));
    EXPECT_EQ("not implemented", thrown_by([&] { site_of_visuals->reserved1(); }));
    EXPECT_EQ("not implemented", thrown_by([&] { site_of_visuals->reserved2(); }));
}

TEST_F(node_test, time_is_the_hosts) {
    const com::ptr<IVisual::ISite> at(root);
    constexpr const char* text = "cannot call get_current_time until hosted in a view";
    EXPECT_EQ(text, thrown_by([&] { static_cast<void>(at->get_current_time()); }));
    view->set_root(root);
    site.time = 12.5;
    EXPECT_EQ(12.5, at->get_current_time());
    view->set_root(nullptr);
    EXPECT_EQ(text, thrown_by([&] { static_cast<void>(at->get_current_time()); }));
}

TEST_F(node_test, operations_that_need_a_view_throw_outside_one) {
    using input::mouse::button;
    EXPECT_EQ("not expected", thrown_by([&] { root->drag_detect(button::left); }));
    EXPECT_EQ("not expected", thrown_by([&] { root->drag_loop(button::left, nullptr); }));
    EXPECT_EQ("not expected", thrown_by<std::runtime_error>([&] { root->set_focus(); }));
}

TEST_F(node_test, drag_loop_hands_the_host_the_way_into_the_nodes_space) {
    const auto child = empty_below(root);
    const auto grandchild = empty_below(child);
    root->set_transform(translation_matrix(10, 20));
    child->set_transform({{{2, 0, 0, 2, 0, 0}}});
    show();
    edge->on_mouse_event({input::mouse::event_type::move, std::nullopt, 0, {5, 6}, 0});
    EXPECT_FALSE(grandchild->drag_loop(input::mouse::button::right, [](D2D_POINT_2F) { return true; }));
    site.drag_detected = true;
    EXPECT_TRUE(child->drag_detect(input::mouse::button::left));
    // In from the root: by (-10, -20), then by half.
    EXPECT_EQ((lines{"drag_loop 5 6 1 0.5 0 0 0.5 -5 -10", "drag_detect 5 6 0"}), calls());
}

TEST_F(node_test, services_are_asked_of_the_host_by_way_of_the_view) {
    constexpr GUID service = com::guid("0F1C7C5B-3A7E-4C39-8E0F-6C5D1B2A9E84");
    const com::ptr<IUnknown> offered = create_node();
    site.offer(service, offered.get());
    const auto child = empty_below(root);
    const com::ptr<IServiceProvider> services(child);
    void* out = &site;
    EXPECT_EQ(E_NOINTERFACE, services->QueryService(service, com::guid_of<INode>(), &out));
    EXPECT_EQ(&site, out) << "left as it was";
    view->set_root(root);
    com::ptr<INode> found;
    EXPECT_EQ(S_OK, services->QueryService(service, com::guid_of<INode>(), found.put_void()));
    EXPECT_EQ(offered, com::ptr<IUnknown>(found));
    EXPECT_EQ(E_NOINTERFACE, services->QueryService(service, com::guid_of<IView>(), &out));
    EXPECT_EQ(E_NOINTERFACE, services->QueryService(com::guid_of<INode>(), com::guid_of<INode>(), &out));
    edge->detach_site(&site);
    EXPECT_EQ(E_NOINTERFACE, services->QueryService(service, com::guid_of<INode>(), &out));
    edge->attach_site(&site);
    view->set_root(nullptr);
    EXPECT_EQ(E_NOINTERFACE, services->QueryService(service, com::guid_of<INode>(), &out));
}

}  // namespace
}  // namespace d2d::scene
