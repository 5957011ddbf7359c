// What programs that were built with these interfaces have compiled in: identifiers, and the places of the
// operations.

#include "d2d/IViewLowerEdge.h"
#include "d2d/scene/IBitmap.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/IDrawingContext.h"
#include "d2d/scene/IEffect.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/IResourceBindingContext.h"
#include "d2d/scene/ITextFormat.h"
#include "d2d/scene/IView.h"
#include "d2d/scene/IVisual.h"
#include "scene/node.h"
#include "support/operation_order.h"

#include <cstddef>

#include <gtest/gtest.h>

namespace d2d::scene {
namespace {

TEST(scene_interfaces, keep_their_identifiers) {
    const struct {
        const char* name;
        GUID kept;
        GUID found;
    } interfaces[] = {
        {"INode", com::guid("39ACCC9F-E227-4AD5-8382-7E4D6437D236"), com::guid_of<INode>()},
        {"IObjectInternal of node", com::guid("D50641C4-A367-410E-962E-8107F7DB00CB"),
         com::guid_of<com::IObjectInternal<node>>()},
        {"IVisual", com::guid("490F76C8-7F3A-4FA4-9773-23226914C385"), com::guid_of<IVisual>()},
        {"IVisual::ISite", com::guid("9B305FCB-FAE4-47E8-B8A6-DA1CB01FEEAB"), com::guid_of<IVisual::ISite>()},
        {"IView", com::guid("054AC459-7FAB-4114-8ED5-710ACE24CEEC"), com::guid_of<IView>()},
        {"IViewLowerEdge", com::guid("A7E34346-DFB3-4B00-8386-CD1375E75481"), com::guid_of<IViewLowerEdge>()},
        {"IResourceBindingContext", com::guid("973464D1-5E80-4006-9F14-B91F80D77DB4"),
         com::guid_of<IResourceBindingContext>()},
        {"IDrawingContext", com::guid("D4CA2414-560A-4AD0-AF93-DA99C5370EF3"),
         com::guid_of<IDrawingContext>()},
        {"IBrush", com::guid("01470EFA-DF56-4CD5-9909-B8304C2F152C"), com::guid_of<IBrush>()},
        {"IBitmap", com::guid("65FA6EF1-5D5D-40F2-B5D2-111049CBEF2A"), com::guid_of<IBitmap>()},
        {"IEffect", com::guid("7D671EEA-4C6E-4664-836A-D323A5EEB83E"), com::guid_of<IEffect>()},
        {"ITextFormat", com::guid("0F4A70D1-239D-48E2-AF5A-BC160E034091"), com::guid_of<ITextFormat>()},
    };
    for (const auto& [name, kept, found] : interfaces) EXPECT_TRUE(com::same_guid(kept, found)) << name;
}

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
