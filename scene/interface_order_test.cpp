// The places of the operations of interfaces: programs that were built with them have them compiled in.

#include "d2d/IViewLowerEdge.h"
#include "d2d/scene/IDrawingContext.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/IResourceBindingContext.h"
#include "d2d/scene/IView.h"
#include "d2d/scene/IVisual.h"
#include "scene/resource.h"
#include "support/operation_order.h"

#include <cstddef>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

#ifndef _MSC_VER  // see the header

using test_support::behind_unknown;
using test_support::expect_in_order;
constexpr std::ptrdiff_t behind_service_provider = 4;

TEST(scene_interfaces, keep_the_order_of_the_operations_of_nodes) {
    expect_in_order(behind_unknown, &INode::set_user_value, &INode::get_user_value, &INode::set_user_object,
                    &INode::get_user_object, &INode::get_hit_mode, &INode::set_hit_mode,
                    &INode::is_hit_transparent, &INode::set_hit_transparent, &INode::set_clip_geometry,
                    &INode::get_clip_geometry, &INode::set_clip_rect, &INode::clear_clip_rect, &INode::draw,
                    &INode::set_effect, &INode::add_mouse_handler, &INode::add_cursor_handler,
                    &INode::set_key_handler, &INode::set_char_handler, &INode::set_focus_handler,
                    &INode::hit_test, &INode::get_bounds, &INode::add_bounds_handler,
                    &INode::remove_bounds_handler, &INode::get_transform, &INode::set_transform,
                    &INode::set_transform_animation, &INode::get_parent, &INode::is_ancestor_of,
                    &INode::add_child, &INode::remove_child, &INode::enumerate_hits, &INode::drag_detect,
                    &INode::drag_loop, &INode::has_focus, &INode::set_focus, &INode::release_focus,
                    &INode::clear, &INode::allocate_handler, &INode::link_handler, &INode::free_handler,
                    &INode::remove_handler, &INode::remove_handlers);
}

TEST(scene_interfaces, keep_the_order_of_the_operations_between_a_view_and_its_host) {
    using edge = IViewLowerEdge;
    using site = IViewLowerEdge::ISite;
    expect_in_order(behind_unknown, &edge::attach_site, &edge::detach_site, &edge::attach_render_target,
                    &edge::detach_render_target, &edge::render, &edge::tick, &edge::on_mouse_event,
                    &edge::get_cursor, &edge::on_key_event, &edge::on_char, &edge::on_focus_gained,
                    &edge::on_focus_lost);
    expect_in_order(behind_service_provider, &site::request_focus, &site::get_current_time,
                    &site::set_animation_clock, &site::bounds_changed, &site::invalidate_rect,
                    &site::drag_detect, &site::drag_loop);
    expect_in_order(behind_unknown, &IView::set_root);
}

TEST(scene_interfaces, keep_the_order_of_the_operations_of_drawing) {
    expect_in_order(behind_unknown, &IDrawingContext::foreground, &IDrawingContext::background,
                    &IDrawingContext::fill_geometry, &IDrawingContext::draw_geometry,
                    &IDrawingContext::draw_text_layout, &IDrawingContext::draw_bitmap,
                    &IDrawingContext::draw_visual, &IDrawingContext::commit);
    expect_in_order(behind_unknown, &IVisual::attach, &IVisual::detach, &IVisual::get_animation,
                    &IVisual::render, &IVisual::hit_test, &IVisual::animate, &IVisual::bind, &IVisual::unbind,
                    &IVisual::get_bounds);
    expect_in_order(behind_unknown, &IVisual::ISite::reserved1, &IVisual::ISite::reserved2,
                    &IVisual::ISite::get_current_time);
    expect_in_order(behind_unknown, &IResourceBindingContext::get_render_target,
                    &IResourceBindingContext::get_binding, &IResourceBindingContext::reserved);
}

TEST(scene_interfaces, keep_the_order_of_the_operations_of_resources) {
    using brush = resource<ID2D1Brush>;
    using binding = ID2DResourceBinding<ID2D1Brush>;
    expect_in_order(behind_unknown, &basic_resource::bind, &basic_resource::is_animated, &brush::bind_typed,
                    &brush::create);
    expect_in_order(behind_unknown, &basic_resource_binding::is_animated);
    expect_in_order(behind_unknown, &binding::update, &binding::get);
}

#endif

}  // namespace
}  // namespace d2d::scene
