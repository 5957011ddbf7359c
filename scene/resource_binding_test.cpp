#include "com/error.h"
#include "d2d/factory.h"
#include "d2d/scene/IDrawingContext.h"
#include "scene/command.h"
#include "scene/solid_color_brush.h"
#include "scene/testing/recording_render_target.h"
#include "scene/testing/shown_view.h"
#include "support/leak_checked_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>

namespace d2d::scene {
namespace {

using fakes::recording_render_target;
using fakes::shown_view;
using lines = std::vector<std::string>;
using brush_resource = com::ptr<resource<ID2D1Brush>>;
using binding_class = solid_color_brush_resource::binding_impl;

constexpr _D3DCOLORVALUE red{1, 0, 0, 1};
constexpr _D3DCOLORVALUE blue{0, 0, 1, 1};
constexpr D2D_RECT_F box{0, 0, 10, 10};
const std::string clock_on = "set_animation_clock 0 0.05000000074505806";
const std::string clock_off = "set_animation_clock 0 0";

std::uint32_t strong_references(const binding_ptr<ID2D1Brush>& binding) {
    return static_cast<binding_class&>(*binding).reference_word() & com::count_word::strong_mask;
}

/// The lines about the clock, in order.
lines clock_calls(const lines& calls) {
    lines result;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(result),
                 [](const std::string& line) { return line.starts_with("set_animation_clock"); });
    return result;
}

class resource_binding_test : public test_support::leak_checked_test {
protected:
    static void SetUpTestSuite() { graphics.emplace(); }
    static void TearDownTestSuite() { graphics.reset(); }

    void TearDown() override {
        EXPECT_EQ(0, first_target.live_brushes());
        EXPECT_EQ(0, second_target.live_brushes());
        EXPECT_EQ(0u, first_target.references());
        EXPECT_EQ(0u, second_target.references());
        leak_checked_test::TearDown();
    }

    static void record_fill(INode* node, IBrush* brush) {
        const auto context = node->draw(true);
        if (brush) context->fill_geometry(factory::create_rectangle_geometry(box).get(), brush);
    }

    static com::ptr<INode> node_filled_with(IBrush* brush) {
        auto node = create_node();
        record_fill(node.get(), brush);
        return node;
    }

    recording_render_target first_target;
    recording_render_target second_target;

private:
    static inline std::optional<factory> graphics;  // a third of a second each time
};

TEST_F(resource_binding_test, a_second_bind_returns_the_same_binding_with_a_new_reference) {
    const shown_view view(&first_target);
    const brush_resource brush(create_solid_color_brush(red));
    const auto first = brush->bind_typed(view.get());
    EXPECT_EQ(1u, strong_references(first));
    const auto second = brush->bind_typed(view.get());
    EXPECT_EQ(first, second);
    EXPECT_EQ(2u, strong_references(first));
    const com::ptr<IUnknown> untyped(brush->bind(view.get()));
    EXPECT_EQ(com::ptr<IUnknown>(first.try_as<basic_resource_binding>()), untyped);
    EXPECT_EQ(3u, strong_references(first));
    EXPECT_EQ((lines{"CreateSolidColorBrush 1 0 0 1"}), first_target.calls());
    EXPECT_EQ(first->get(), second->get());
}

TEST_F(resource_binding_test, a_visual_gets_the_same_binding_through_the_context) {
    const shown_view view(&first_target);
    const auto brush = create_solid_color_brush(red);
    const auto binding = brush_resource(brush)->bind_typed(view.get());
    const auto of_context = view->get_binding(brush.get());
    EXPECT_EQ(com::ptr<IResourceBinding>(binding), of_context);
    EXPECT_EQ(binding, of_context.try_as<ID2DResourceBinding<ID2D1Brush>>());
    EXPECT_EQ(1, first_target.created_brushes());
}

TEST_F(resource_binding_test, two_views_of_one_resource_have_a_binding_and_a_device_object_each) {
    const shown_view first_view(&first_target);
    const shown_view second_view(&second_target);
    const brush_resource brush(create_solid_color_brush(red));
    auto first = brush->bind_typed(first_view.get());
    const auto second = brush->bind_typed(second_view.get());
    EXPECT_NE(first, second);
    EXPECT_NE(first->get(), second->get());
    EXPECT_EQ(1, first_target.live_brushes());
    EXPECT_EQ(1, second_target.live_brushes());
    EXPECT_EQ(first, brush->bind_typed(first_view.get()));
    EXPECT_EQ(second, brush->bind_typed(second_view.get()));
    first.reset();
    EXPECT_EQ(0, first_target.live_brushes());
    EXPECT_EQ(1, second_target.live_brushes());
    EXPECT_EQ(second, brush->bind_typed(second_view.get()));
}

TEST_F(resource_binding_test, two_views_of_one_target_have_bindings_of_their_own) {
    const shown_view first_view(&first_target);
    const shown_view second_view(&first_target);
    const brush_resource brush(create_solid_color_brush(red));
    EXPECT_NE(brush->bind_typed(first_view.get()), brush->bind_typed(second_view.get()));
    EXPECT_EQ(2, first_target.created_brushes());
}

TEST_F(resource_binding_test, a_binding_goes_with_the_last_command_that_uses_it_and_the_resource_stays) {
    const shown_view view(&first_target);
    const auto brush = create_solid_color_brush(red);
    const auto root = node_filled_with(brush.get());
    const auto child = node_filled_with(brush.get());
    root->add_child(child);
    EXPECT_EQ(0, first_target.created_brushes()) << "outside a view nothing is bound";
    view->set_root(root);
    EXPECT_EQ(1, first_target.created_brushes());

    record_fill(root.get(), nullptr);
    EXPECT_EQ(1, first_target.live_brushes()) << "the child uses it";
    record_fill(child.get(), nullptr);
    EXPECT_EQ(0, first_target.live_brushes());
    EXPECT_EQ(brush.get(), create_solid_color_brush(red).get()) << "the resource is there";

    record_fill(child.get(), brush.get());
    EXPECT_EQ(2, first_target.created_brushes()) << "the former binding has left the resource's list";
    EXPECT_EQ(1, first_target.live_brushes());
}

TEST_F(resource_binding_test, a_recording_keeps_its_resource_when_nobody_else_does) {
    const shown_view view(&first_target);
    view->set_root(node_filled_with(create_solid_color_brush(red).get()));
    EXPECT_EQ(1u, solid_color_brush::shared_count());
    view->set_root(nullptr);
    EXPECT_EQ(0u, solid_color_brush::shared_count());
}

TEST_F(resource_binding_test, a_new_recording_with_the_same_brush_makes_no_new_device_object) {
    const shown_view view(&first_target);
    const auto brush = create_solid_color_brush(red);
    const auto root = node_filled_with(brush.get());
    view->set_root(root);
    for (int i = 0; i < 5; ++i) record_fill(root.get(), brush.get());
    EXPECT_EQ(1, first_target.created_brushes());
}

TEST_F(resource_binding_test, a_change_of_target_replaces_the_device_objects_alone) {
    shown_view view(&first_target);
    const auto root = node_filled_with(create_solid_color_brush(red).get());
    view->set_root(root);
    view.replace_target(nullptr);
    EXPECT_EQ(0, first_target.live_brushes());
    view.replace_target(&second_target);
    EXPECT_EQ((lines{"CreateSolidColorBrush 1 0 0 1"}), second_target.calls());
    EXPECT_EQ(1, first_target.created_brushes());
}

TEST_F(resource_binding_test, a_node_that_leaves_its_view_lets_its_bindings_go) {
    const shown_view view(&first_target);
    const auto root = create_node();
    const auto child = node_filled_with(create_solid_color_brush(red).get());
    view->set_root(root);
    root->add_child(child);
    EXPECT_EQ(1, first_target.live_brushes());
    root->remove_child(child);
    EXPECT_EQ(0, first_target.live_brushes());
    root->add_child(child);
    EXPECT_EQ(2, first_target.created_brushes());
}

TEST_F(resource_binding_test, an_animated_binding_keeps_the_clock_on_for_as_long_as_it_lives) {
    shown_view view(&first_target);
    const auto brush = create_pulsating_solid_color_brush(red, blue, 1.0, 1.0);
    view->set_root(create_node());
    EXPECT_EQ(lines{}, clock_calls(view.site.take_calls()));
    auto binding = view->get_binding(brush.get());
    EXPECT_EQ(lines{clock_on}, clock_calls(view.site.take_calls()));
    const auto another_brush = create_blinking_solid_color_brush(red, blue, 1.0f);
    auto another_binding = view->get_binding(another_brush.get());
    EXPECT_EQ(lines{}, clock_calls(view.site.take_calls())) << "it is on already";
    binding.reset();
    EXPECT_EQ(lines{}, clock_calls(view.site.take_calls())) << "the other one needs it";
    another_binding.reset();
    EXPECT_EQ(lines{clock_off}, clock_calls(view.site.take_calls()));
}

TEST_F(resource_binding_test, a_binding_without_an_animation_needs_no_clock) {
    shown_view view(&first_target);
    view->set_root(node_filled_with(create_solid_color_brush(red).get()));
    EXPECT_EQ(lines{}, clock_calls(view.site.take_calls()));
    const auto brush = create_solid_color_brush(blue);  // a binding does not keep it
    const auto binding = view->get_binding(brush.get());
    EXPECT_FALSE(binding.try_as<basic_resource_binding>()->is_animated());
}

TEST_F(resource_binding_test,
       a_node_with_an_animated_brush_starts_the_clock_as_it_comes_and_stops_it_as_it_goes) {
    shown_view view(&first_target);
    const auto root = create_node();
    const auto child = node_filled_with(create_blinking_solid_color_brush(red, blue, 0.5f).get());
    view->set_root(root);
    root->add_child(child);
    EXPECT_EQ(lines{clock_on}, clock_calls(view.site.take_calls()));
    root->remove_child(child);
    EXPECT_EQ(lines{clock_off}, clock_calls(view.site.take_calls()));
    EXPECT_EQ(0.0, view.site.clock_interval);
}

TEST_F(resource_binding_test, each_tick_invalidates_what_an_animated_brush_paints) {
    shown_view view(&first_target);
    const auto root = create_node();
    root->set_transform({{{1, 0, 0, 1, 100, 200}}});
    const auto child = node_filled_with(create_pulsating_solid_color_brush(red, blue, 1.0, 1.0).get());
    root->add_child(child);
    view->set_root(root);
    view.site.take_calls();
    view->tick(1.0f, 0.05f);
    view->tick(1.05f, 0.05f);
    EXPECT_EQ((lines{"invalidate_rect 100 200 110 210", "invalidate_rect 100 200 110 210"}),
              view.site.take_calls());
}

TEST_F(resource_binding_test, a_paint_brings_animated_brushes_to_the_time_of_the_frame_and_no_others) {
    shown_view view(&first_target);
    const auto root = node_filled_with(create_solid_color_brush({0, 1, 0, 1}).get());
    const auto child = node_filled_with(create_blinking_solid_color_brush(red, blue, 0.5f).get());
    root->add_child(child);
    view->set_root(root);
    EXPECT_EQ((lines{"CreateSolidColorBrush 0 1 0 1", "CreateSolidColorBrush 1 0 0 1"}),
              first_target.take_calls())
        << "an animated brush is made with its colour at the time 0";
    view.site.time = 7.75;
    view->render(box, {{{1, 0, 0, 1, 0, 0}}});
    EXPECT_EQ((lines{"SetTransform 1 0 0 1 0 0", "FillGeometry rectangle(0 0 10 10) brush(0 1 0 1)",
                     "SetColor 0 0 1 1", "FillGeometry rectangle(0 0 10 10) brush(0 0 1 1)"}),
              first_target.take_calls());
    view.site.time = 8.25;
    view->render(box, {{{1, 0, 0, 1, 0, 0}}});
    EXPECT_EQ("SetColor 1 0 0 1", first_target.take_calls().at(2));
}

TEST_F(resource_binding_test, a_device_object_that_cannot_be_made_fails_the_drawing_call) {
    const shown_view view(&first_target);
    const auto root = node_filled_with(create_solid_color_brush(red).get());
    view->set_root(root);
    first_target.fail_creations_after(0, E_OUTOFMEMORY);
    {
        const auto context = root->draw(false);
        try {
            context->fill_geometry(factory::create_rectangle_geometry(box).get(),
                                   create_solid_color_brush(blue).get());
            ADD_FAILURE() << "no failure";
        } catch (const com::error& failed) {
            EXPECT_EQ(E_OUTOFMEMORY, failed.hresult);
        }
    }
    EXPECT_EQ(1u, solid_color_brush::shared_count()) << "the blue one has gone";
    // The former recording is still shown, and nothing of the failure stays.
    first_target.fail_creations_after(0, S_OK);
    record_fill(root.get(), create_solid_color_brush(blue).get());
    EXPECT_EQ(1, first_target.live_brushes());
}

TEST_F(resource_binding_test, a_target_that_fails_midway_keeps_the_bindings_that_were_made) {
    shown_view view(nullptr);
    const auto root = create_node();
    {
        const auto context = root->draw(true);
        for (const auto& color : {red, blue, _D3DCOLORVALUE{0, 1, 0, 1}})
            context->fill_geometry(factory::create_rectangle_geometry(box).get(),
                                   create_solid_color_brush(color).get());
    }
    view->set_root(root);
    first_target.fail_creations_after(2, E_FAIL);
    EXPECT_THROW(view.replace_target(&first_target), com::error);
    EXPECT_EQ(2, first_target.created_brushes());
    EXPECT_EQ(2, first_target.live_brushes());
    view.replace_target(nullptr);
    EXPECT_EQ(0, first_target.live_brushes());
}

struct foreign_brush : com::base_object<com::object_base, IBrush> {};

TEST_F(resource_binding_test, a_resource_of_another_make_is_refused) {
    const shown_view view(&first_target);
    const com::ptr<IBrush> brush = com::create_object<foreign_brush>();
    try {
        static_cast<void>(view->get_binding(brush.get()));
        ADD_FAILURE() << "no failure";
    } catch (const com::error& refused) {
        EXPECT_EQ(E_NOINTERFACE, refused.hresult);
    }
    const auto context = create_node()->draw(false);
    EXPECT_THROW(context->fill_geometry(factory::create_rectangle_geometry(box).get(), brush.get()),
                 com::error);
}

}  // namespace
}  // namespace d2d::scene
