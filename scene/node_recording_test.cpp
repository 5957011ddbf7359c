#include "com/error.h"
#include "scene/testing/scene_test.h"

#include <functional>
#include <stdexcept>

namespace d2d::scene {
namespace {

using fakes::call_text;
using fakes::recording_render_target;
using fakes::test_brush;

constexpr D2D_MATRIX_3X2_F translation(float x, float y) {
    return {{{1, 0, 0, 1, x, y}}};
}

class node_recording : public fakes::scene_test {
protected:
    [[nodiscard]] INode::bounds_function logged_bounds(const char* name) {
        return [this, name](bool valid, D2D_RECT_F bounds) {
            site.calls.push_back(call_text("bounds", name, valid, bounds));
        };
    }
    [[nodiscard]] std::string content_of(const com::ptr<INode>& of) const {
        const node& at = inside(of);
        return call_text(static_cast<int>(at.background.size()), static_cast<int>(at.foreground.size()),
                         at.content_bounds);
    }
};

TEST_F(node_recording, nothing_reaches_the_node_ahead_of_the_commit) {
    show();
    fill(root, {0, 0, 10, 10});
    forget();
    const auto context = root->draw(false);
    fill(*context, {0, 0, 99, 99});
    context->foreground();
    fill(*context, {0, 0, 99, 99});
    EXPECT_EQ("1 0 0 0 10 10", content_of(root));
    EXPECT_EQ(lines{}, site.calls);
    context->commit();
    EXPECT_EQ("1 1 0 0 99 99", content_of(root));
}

TEST_F(node_recording, a_context_released_without_commit_is_discarded) {
    show();
    fill(root, {0, 0, 10, 10});
    forget();
    fill(*root->draw(false), {0, 0, 99, 99});
    EXPECT_EQ("1 0 0 0 10 10", content_of(root));
    EXPECT_EQ(lines{}, site.calls);
    EXPECT_EQ(1, target.live_brushes());
}

TEST_F(node_recording, the_last_release_commits_on_request) {
    show();
    auto context = root->draw(true);
    fill(*context, {0, 0, 10, 10});
    com::ptr<IDrawingContext> other = context;
    context.reset();
    EXPECT_EQ("0 0 0 0 0 0", content_of(root));
    other.reset();
    EXPECT_EQ("1 0 0 0 10 10", content_of(root));
    EXPECT_EQ(lines{"invalidate_rect 0 0 10 10"}, site.calls);
}

TEST_F(node_recording, a_context_keeps_its_node) {
    auto context = root->draw(true);
    fill(*context, {0, 0, 10, 10});
    root.reset();
    context.reset();
    root = create_node();
}

TEST_F(node_recording, a_commit_and_a_commit_on_release_leave_the_node_empty) {
    show();
    auto context = root->draw(true);
    fill(*context, {0, 0, 10, 10});
    context->commit();
    EXPECT_EQ("1 0 0 0 10 10", content_of(root));
    context.reset();
    EXPECT_EQ("0 0 0 0 0 0", content_of(root));
    EXPECT_EQ(0, inside(root).content_flags & node::has_content);
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "invalidate_rect 0 0 10 10"}), site.calls);
}

TEST_F(node_recording, unwinding_commits_what_was_recorded_so_far) {
    const auto broken_client = [&] {
        const auto context = root->draw(true);
        fill(*context, {0, 0, 10, 10});
        throw std::runtime_error("client");
    };
    EXPECT_THROW(broken_client(), std::runtime_error);
    EXPECT_EQ("1 0 0 0 10 10", content_of(root));
}

TEST_F(node_recording, a_context_starts_anew_after_each_commit) {
    const auto brush = com::create_object<test_brush>(red, "moving", true);
    const auto context = root->draw(false);
    context->fill_geometry(factory::create_rectangle_geometry({0, 0, 99, 99}).get(), brush.get());
    context->commit();
    EXPECT_NE(0, inside(root).content_flags & node::content_animated);
    fill(*context, {5, 5, 7, 7});
    context->commit();
    EXPECT_EQ("1 0 5 5 7 7", content_of(root));
    EXPECT_EQ(0, inside(root).content_flags & node::content_animated);
    context->commit();
    EXPECT_EQ("0 0 0 0 0 0", content_of(root));
}

TEST_F(node_recording, an_empty_recording_clears_the_node) {
    show();
    fill(root, {0, 0, 10, 10});
    EXPECT_TRUE(root->hit_test({5, 5}));
    root->draw(false)->commit();
    EXPECT_FALSE(root->hit_test({5, 5}));
    EXPECT_EQ(0, inside(root).content_flags & node::has_content);
    EXPECT_EQ("0 0 0 0", call_text(root->get_bounds(true)));
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0"}), painted());
}

TEST_F(node_recording, a_commit_happens_in_a_fixed_order) {
    const auto child = create_node();
    child->set_transform(translation(10, 20));
    root->add_child(child);
    show();
    const auto a = make_visual("a", {0, 0, 10, 10});
    const auto b = make_visual("b", {0, 0, 20, 20});
    auto context = child->draw(false);
    context->draw_visual(a.get());
    context->commit();
    child->add_bounds_handler(logged_bounds("child"));
    root->add_bounds_handler(logged_bounds("root"));
    forget();
    context->draw_visual(b.get());
    context->commit();
    EXPECT_EQ((lines{
                  "invalidate_rect 10 20 20 30",
                  "detach a",
                  "attach b",
                  "bounds root 1 10 20 30 40",
                  "invalidate_rect 10 20 30 40",
                  "bounds child 1 0 0 20 20",
              }),
              site.take_calls());
    context->commit();
    EXPECT_EQ((lines{
                  "invalidate_rect 10 20 30 40",
                  "detach b",
                  "bounds root 0 0 0 0 0",
                  "bounds child 0 0 0 0 0",
              }),
              site.take_calls());
    context->commit();
    EXPECT_EQ(lines{}, site.take_calls());
}

TEST_F(node_recording, equal_bounds_are_invalidated_and_not_told) {
    show();
    fill(root, {0, 0, 10, 10});
    root->add_bounds_handler(logged_bounds("root"));
    forget();
    fill(root, {0, 0, 10, 10}, blue);
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "invalidate_rect 0 0 10 10"}), site.take_calls());
}

TEST_F(node_recording, content_within_the_bounds_of_the_children_is_invalidated_and_not_told) {
    const auto child = create_node();
    fill(child, {0, 0, 50, 50});
    root->add_child(child);
    show();
    root->add_bounds_handler(logged_bounds("root"));
    fill(root, {10, 10, 20, 20});
    fill(root, {30, 30, 40, 40});
    EXPECT_EQ(
        (lines{"invalidate_rect 10 10 20 20", "invalidate_rect 10 10 20 20", "invalidate_rect 30 30 40 40"}),
        site.take_calls());
}

TEST_F(node_recording, without_a_target_or_a_host_nothing_is_invalidated) {
    view->set_root(root);
    root->add_bounds_handler(logged_bounds("root"));
    fill(root, {0, 0, 10, 10});
    EXPECT_EQ(lines{"bounds root 1 0 0 10 10"}, site.take_calls());
    edge->attach_render_target(&target);
    edge->detach_site(&site);
    fill(root, {0, 0, 20, 20});
    EXPECT_EQ(lines{"bounds root 1 0 0 20 20"}, site.take_calls());
    edge->attach_site(&site);
}

TEST_F(node_recording, an_animated_recording_keeps_the_clock_on) {
    const auto brush = com::create_object<test_brush>(red, "moving", true);
    show();
    const auto record = [&](IBrush* with) {
        const auto context = root->draw(false);
        context->fill_geometry(factory::create_rectangle_geometry({0, 0, 10, 10}).get(), with);
        context->commit();
    };
    record(brush.get());
    EXPECT_EQ((lines{"set_animation_clock 0 0.05000000074505806", "invalidate_rect 0 0 10 10"}),
              site.take_calls());
    record(brush.get());
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "invalidate_rect 0 0 10 10"}), site.take_calls());
    record(make_brush(red).get());
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "invalidate_rect 0 0 10 10", "set_animation_clock 0 0"}),
              site.take_calls());
}

TEST_F(node_recording, an_animated_visual_keeps_the_clock_on_wherever_it_is_in_the_tree) {
    const auto child = create_node();
    root->add_child(child);
    show();
    const auto visual = com::create_object<fakes::test_visual>("a", D2D_RECT_F{0, 0, 10, 10});
    visual->animated = true;
    const auto context = child->draw(false);
    context->draw_visual(visual.get());
    context->commit();
    EXPECT_EQ((lines{"set_animation_clock 0 0.05000000074505806", "invalidate_rect 0 0 10 10"}),
              site.take_calls());
    context->commit();
    EXPECT_EQ((lines{"invalidate_rect 0 0 10 10", "set_animation_clock 0 0"}), site.take_calls());
}

TEST_F(node_recording, a_resource_of_both_recordings_keeps_its_device_object) {
    const auto brush = make_brush(red);
    const auto bitmap = com::create_object<fakes::test_bitmap>(D2D_SIZE_U{4, 4}, 0u);
    const auto record = [&] {
        const auto context = root->draw(false);
        context->fill_geometry(factory::create_rectangle_geometry({0, 0, 10, 10}).get(), brush.get());
        context->draw_bitmap(0, 0, bitmap.get());
        context->commit();
    };
    const auto bindings = [&] {
        const auto& commands = inside(root).background;
        return std::pair<const void*, const void*>(std::get<fill_command>(commands.at(0)).binding.get(),
                                                   std::get<bitmap_command>(commands.at(1)).binding.get());
    };
    show();
    record();
    const auto first = bindings();
    ASSERT_TRUE(first.first && first.second);
    record();
    EXPECT_EQ(first, bindings());
    EXPECT_EQ(1, target.created_brushes());
    EXPECT_EQ(1, target.created_bitmaps());
    root->draw(false)->commit();
    EXPECT_EQ(0, target.live_brushes());
    EXPECT_EQ(0, target.live_bitmaps());
}

/// Recordings that are open while the node comes and goes, or the target does: at the paint the bindings are
/// there, and are those of the target that paints.
class open_recording : public node_recording {
protected:
    void SetUp() override {
        node_recording::SetUp();
        brush = make_brush(red);
        moving = com::create_object<test_brush>(green, "moving", true);
    }
    void TearDown() override {
        brush.reset();
        moving.reset();
        node_recording::TearDown();
        EXPECT_EQ(0, later_target.live_brushes());
        EXPECT_EQ(0u, later_target.references());
    }

    void record(IDrawingContext& context) const {
        const auto rectangle = factory::create_rectangle_geometry({0, 0, 10, 10});
        context.fill_geometry(rectangle.get(), brush.get());
        context.foreground();
        context.draw_geometry(rectangle.get(), moving.get(), 2, nullptr);
        context.background();
    }

    /// The picture is there, and all device objects are of the target that is attached last.
    void expect_painted_on(recording_render_target& shown_on) {
        static_cast<void>(shown_on.take_calls());
        edge->render({0, 0, 100, 100}, translation(0, 0));
        EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 10 10) brush(1 0 0 1)",
                         "DrawGeometry rectangle(0 0 10 10) brush(0 1 0 1) 2 null"}),
                  shown_on.take_calls());
        EXPECT_EQ(&shown_on == &target ? 2 : 0, target.live_brushes());
        EXPECT_EQ(&shown_on == &target ? 0 : 2, later_target.live_brushes());
    }

    void replace_target() {
        edge->detach_render_target(&target);
        edge->attach_render_target(&later_target);
    }

    recording_render_target later_target;
    com::ptr<test_brush> brush;
    com::ptr<test_brush> moving;
};

TEST_F(open_recording, is_bound_when_its_node_enters_a_view_ahead_of_the_commit) {
    const auto context = root->draw(false);
    record(*context);
    show();
    EXPECT_EQ(0, target.live_brushes());
    context->commit();
    expect_painted_on(target);
}

TEST_F(open_recording, is_bound_when_a_target_comes_ahead_of_the_commit) {
    view->set_root(root);
    const auto context = root->draw(false);
    record(*context);
    edge->attach_render_target(&target);
    context->commit();
    expect_painted_on(target);
}

TEST_F(open_recording, is_bound_when_part_of_it_was_recorded_ahead_of_the_target) {
    view->set_root(root);
    const auto context = root->draw(false);
    context->fill_geometry(factory::create_rectangle_geometry({0, 0, 10, 10}).get(), brush.get());
    edge->attach_render_target(&target);
    context->foreground();
    context->draw_geometry(factory::create_rectangle_geometry({0, 0, 10, 10}).get(), moving.get(), 2,
                           nullptr);
    context->commit();
    expect_painted_on(target);
}

TEST_F(open_recording, has_no_bindings_when_its_node_has_left_the_view) {
    show();
    const auto context = root->draw(false);
    record(*context);
    view->set_root(nullptr);
    context->commit();
    EXPECT_FALSE(std::get<fill_command>(inside(root).background.at(0)).binding);
    EXPECT_FALSE(std::get<stroke_command>(inside(root).foreground.at(0)).binding);
    EXPECT_EQ(0, target.live_brushes());
    EXPECT_EQ(0.0, site.clock_interval);
    view->set_root(root);
    expect_painted_on(target);
}

TEST_F(open_recording, goes_on_when_its_node_has_left_the_view) {
    show();
    const auto context = root->draw(false);
    view->set_root(nullptr);
    record(*context);
    EXPECT_EQ(0, target.live_brushes());
    context->commit();
    view->set_root(root);
    expect_painted_on(target);
}

TEST_F(open_recording, goes_on_when_the_target_is_gone) {
    show();
    const auto context = root->draw(false);
    edge->detach_render_target(&target);
    record(*context);
    context->commit();
    edge->attach_render_target(&later_target);
    expect_painted_on(later_target);
}

TEST_F(open_recording, takes_the_objects_of_the_target_that_came_after_its_commit) {
    show();
    const auto context = root->draw(false);
    record(*context);
    edge->detach_render_target(&target);
    context->commit();
    edge->attach_render_target(&later_target);
    expect_painted_on(later_target);
}

TEST_F(open_recording, takes_the_objects_of_the_target_that_came_ahead_of_its_commit) {
    show();
    const auto context = root->draw(false);
    record(*context);
    replace_target();
    context->commit();
    expect_painted_on(later_target);
}

TEST_F(open_recording, leaves_the_committed_recording_with_the_objects_of_the_new_target) {
    show();
    const auto committed = root->draw(false);
    record(*committed);
    committed->commit();
    auto context = root->draw(false);
    record(*context);
    replace_target();
    static_cast<void>(later_target.take_calls());
    edge->render({0, 0, 100, 100}, translation(0, 0));
    EXPECT_EQ(2, later_target.live_brushes());
    context.reset();
    expect_painted_on(later_target);
}

TEST_F(open_recording, goes_on_with_the_new_target_after_part_was_recorded_for_the_old_one) {
    show();
    const auto context = root->draw(false);
    context->fill_geometry(factory::create_rectangle_geometry({0, 0, 10, 10}).get(), brush.get());
    replace_target();
    context->foreground();
    context->draw_geometry(factory::create_rectangle_geometry({0, 0, 10, 10}).get(), moving.get(), 2,
                           nullptr);
    context->commit();
    expect_painted_on(later_target);
}

TEST_F(open_recording, survives_the_view_that_it_was_begun_in) {
    show();
    auto context = root->draw(false);
    record(*context);
    view->set_root(nullptr);
    edge->detach_render_target(&target);
    edge->detach_site(&site);
    edge.reset();
    view.reset();
    view = create_view();
    edge = com::ptr<IViewLowerEdge>(view);
    edge->attach_site(&site);
    edge->attach_render_target(&target);
    record(*context);
    context->commit();
    view->set_root(root);
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 10 10) brush(1 0 0 1)",
                     "FillGeometry rectangle(0 0 10 10) brush(1 0 0 1)",
                     "DrawGeometry rectangle(0 0 10 10) brush(0 1 0 1) 2 null",
                     "DrawGeometry rectangle(0 0 10 10) brush(0 1 0 1) 2 null"}),
              painted());
    EXPECT_EQ(2, target.live_brushes());
}

TEST_F(open_recording, moves_to_another_view_with_its_node) {
    show();
    const auto context = root->draw(false);
    record(*context);
    view->set_root(nullptr);
    const auto other = create_view();
    const com::ptr<IViewLowerEdge> other_edge(other);
    other_edge->attach_render_target(&later_target);
    other->set_root(root);
    record(*context);
    context->commit();
    EXPECT_EQ(0, target.live_brushes());
    EXPECT_EQ(2, later_target.live_brushes());
    other_edge->render({0, 0, 100, 100}, translation(0, 0));
    other->set_root(nullptr);
    other_edge->detach_render_target(&later_target);
}

TEST_F(open_recording, does_not_bind_its_visuals) {
    const auto visual = make_visual("a", {0, 0, 10, 10});
    const auto context = root->draw(false);
    context->draw_visual(visual.get());
    show();
    context->commit();
    EXPECT_EQ((lines{"attach a", "invalidate_rect 0 0 10 10"}), site.take_calls());
}

TEST_F(open_recording, that_cannot_be_bound_leaves_the_node_as_it_was) {
    fill(root, {0, 0, 50, 50}, blue);
    const auto context = root->draw(false);
    record(*context);
    show();
    target.fail_creations_after(1, E_OUTOFMEMORY);
    EXPECT_THROW(context->commit(), com::error);
    target.fail_creations_after(0, S_OK);
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 50 50) brush(0 0 1 1)"}),
              painted());
}

}  // namespace
}  // namespace d2d::scene
