#include "com/error.h"
#include "scene/testing/scene_test.h"

namespace d2d::scene {
namespace {

using fakes::recording_render_target;
using fakes::test_brush;

class view_target : public fakes::scene_test {};

TEST_F(view_target, is_kept_until_it_is_detached) {
    edge->attach_render_target(&target);
    EXPECT_LT(0u, target.references());
    const com::ptr<IResourceBindingContext> context(view);
    EXPECT_EQ(&target, context->get_render_target());
    edge->detach_render_target(nullptr);
    EXPECT_EQ(0u, target.references());
    EXPECT_EQ(nullptr, context->get_render_target());
}

TEST_F(view_target, binds_the_whole_tree_and_invalidates_nothing) {
    const auto child = create_node();
    fill(root, {0, 0, 10, 10}, red);
    fill(child, {0, 0, 10, 10}, blue);
    root->add_child(child);
    view->set_root(root);
    edge->attach_render_target(&target);
    EXPECT_EQ((lines{"CreateSolidColorBrush 1 0 0 1", "CreateSolidColorBrush 0 0 1 1"}), target.take_calls());
    EXPECT_EQ(lines{}, site.take_calls());
    edge->detach_render_target(&target);
    EXPECT_EQ(0, target.live_brushes());
    EXPECT_EQ(lines{}, site.take_calls());
}

TEST_F(view_target, stops_and_starts_the_clock_as_it_goes_and_comes) {
    const auto context = root->draw(false);
    context->fill_geometry(factory::create_rectangle_geometry({0, 0, 1, 1}).get(),
                           com::create_object<test_brush>(red, "moving", true).get());
    context->commit();
    view->set_root(root);
    EXPECT_EQ(lines{}, site.take_calls());
    for (int turn = 0; turn < 2; ++turn) {
        edge->attach_render_target(&target);
        EXPECT_EQ(lines{"set_animation_clock 0 0.05000000074505806"}, site.take_calls());
        edge->detach_render_target(&target);
        EXPECT_EQ(lines{"set_animation_clock 0 0"}, site.take_calls());
    }
}

TEST_F(view_target, that_is_lost_gives_way_to_another_with_the_same_picture) {
    fill(root, {0, 0, 10, 10}, red);
    show();
    const lines first = painted();
    recording_render_target next;
    edge->detach_render_target(&target);
    edge->attach_render_target(&next);
    static_cast<void>(next.take_calls());
    edge->render({0, 0, 100, 100}, {{{1, 0, 0, 1, 0, 0}}});
    EXPECT_EQ(first, next.take_calls());
    EXPECT_EQ(0, target.live_brushes());
    edge->detach_render_target(&next);
    EXPECT_EQ(0, next.live_brushes());
    EXPECT_EQ(0u, next.references());
}

TEST_F(view_target, one_resource_has_a_device_object_in_each_view) {
    const auto brush = make_brush(red);
    const auto record = [&](const com::ptr<INode>& at) {
        const auto context = at->draw(false);
        context->fill_geometry(factory::create_rectangle_geometry({0, 0, 1, 1}).get(), brush.get());
        context->commit();
    };
    recording_render_target other_target;
    const auto other_root = create_node();
    const auto other = create_view();
    const com::ptr<IViewLowerEdge> other_edge(other);
    other->set_root(other_root);
    other_edge->attach_render_target(&other_target);
    show();
    record(root);
    record(other_root);
    EXPECT_EQ(1, target.live_brushes());
    EXPECT_EQ(1, other_target.live_brushes());
    other->set_root(nullptr);
    EXPECT_EQ(1, target.live_brushes());
    EXPECT_EQ(0, other_target.live_brushes());
    other_edge->detach_render_target(&other_target);
}

TEST_F(view_target, that_cannot_make_all_device_objects_keeps_those_made_and_is_painted_without_the_others) {
    const auto child = create_node();
    fill(root, {0, 0, 10, 10}, red);
    fill(child, {0, 0, 10, 10}, blue);
    root->add_child(child);
    view->set_root(root);
    target.fail_creations_after(1, E_OUTOFMEMORY);
    EXPECT_THROW(edge->attach_render_target(&target), com::error);
    EXPECT_EQ(1, target.live_brushes());
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 10 10) brush(1 0 0 1)"}),
              painted());

    edge->detach_render_target(&target);
    EXPECT_EQ(0, target.live_brushes());
    target.fail_creations_after(0, S_OK);
    edge->attach_render_target(&target);
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 10 10) brush(1 0 0 1)",
                     "FillGeometry rectangle(0 0 10 10) brush(0 0 1 1)"}),
              painted());
}

TEST_F(view_target, a_subtree_that_cannot_be_bound_is_in_the_view_all_the_same_and_can_be_taken_out) {
    edge->attach_render_target(&target);
    view->set_root(root);
    const auto group = create_node();
    const auto leaf = create_node();
    fill(group, {0, 0, 10, 10}, red);
    fill(leaf, {0, 0, 10, 10}, blue);
    group->add_child(leaf);
    target.fail_creations_after(0, E_OUTOFMEMORY);
    EXPECT_THROW(root->add_child(group), com::error);
    EXPECT_EQ(lines{"SetTransform 1 0 0 1 0 0"}, painted());
    EXPECT_EQ(root, leaf->get_parent()->get_parent());
    EXPECT_THROW(leaf->set_hit_mode(INode::hit_solid), std::logic_error);  // in a view
    EXPECT_TRUE(root->remove_child(group));
    EXPECT_NO_THROW(leaf->set_hit_mode(INode::hit_solid));

    target.fail_creations_after(0, S_OK);
    root->add_child(group);
    EXPECT_EQ(2, target.live_brushes());
}

TEST_F(view_target, a_view_without_a_target_paints_nothing) {
    view->set_root(root);
    fill(root, {0, 0, 10, 10}, red);
    EXPECT_FALSE(edge->render({0, 0, 10, 10}, {{{1, 0, 0, 1, 0, 0}}}));
}

TEST_F(view_target, the_binding_context_binds_resources_for_visuals) {
    edge->attach_render_target(&target);
    const com::ptr<IResourceBindingContext> context(view);
    const auto brush = make_brush(red);
    const auto binding = context->get_binding(static_cast<IBrush*>(brush.get()));
    EXPECT_EQ(binding, context->get_binding(static_cast<IBrush*>(brush.get())));
    EXPECT_EQ(1, target.created_brushes());
    EXPECT_THROW(static_cast<void>(context->get_binding(root.get())), com::error);
    EXPECT_THROW(static_cast<void>(context->get_binding(nullptr)), com::error);
    context->reserved();
}

}  // namespace
}  // namespace d2d::scene
