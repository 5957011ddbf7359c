#include "controls/node_placement.h"
#include "controls/text_extent.h"
#include "controls/tree/node.h"
#include "controls/tree/view.h"
#include "d2d/factory.h"
#include "d2d/scene/IEffect.h"
#include "scene/matrix.h"

#include <utility>

namespace d2d::ui::tree {

void node::enter(view& entered) {
    leave();
    shown_in = &entered;
    placed = false;
    unplaced_children = children.size();
    try {
        make_row();
        if (selected) entered.add_selected(*this);
        for (const auto& child : children) child->enter(entered);
    } catch (...) {
        leave();
        throw;
    }
}

void node::leave() {
    detach_rows(forget_rows());
}

/// The last one first: as a rule it is the last of the content's children too, where it costs least to go.
void node::detach_rows(const scene_nodes& shown) {
    for (auto row = shown.rbegin(); row != shown.rend(); ++row) detach_node(**row);
}

/// Drops the rows of the node and of all below it, and gives those that stand in the view's content. No
/// handler runs here.
node::scene_nodes node::forget_rows() {
    scene_nodes shown;
    forget_rows(shown);
    return shown;
}

void node::forget_rows(scene_nodes& shown) {
    if (!shown_in) return;
    for (const auto& child : children) child->forget_rows(shown);
    if (row_node && row_node->get_parent()) shown.push_back(row_node);
    if (selected) shown_in->remove_selected(*this);
    shown_in = nullptr;
    hot_count = 0;
    for (auto* const part : {&row_node, &expander_node, &icon_node, &text_node}) part->reset();
    layout.reset();
}

void node::show() {
    if (!row_node->get_parent()) shown_in->content_node().add_child(row_node);
    if (!expanded) return;
    for (const auto& child : children) child->show();
}

/// Those in the view's content, of the node and of all below it.
void node::collect_rows(scene_nodes& shown) const {
    if (row_node->get_parent()) shown.push_back(row_node);
    if (!expanded) return;
    for (const auto& child : children) child->collect_rows(shown);
}

/// Of a node that is collapsed now; the last one first, as `detach_rows`. Ends where a handler that hears of
/// it expands the node again.
void node::hide_children() {
    scene_nodes shown;
    for (const auto& child : children) child->collect_rows(shown);
    for (auto row = shown.rbegin(); row != shown.rend(); ++row) {
        if (expanded) return;
        detach_node(**row);
    }
}

void node::make_row() {
    row_node = scene::create_node();
    icon_node = scene::create_node();
    text_node = scene::create_node();
    shown_in->tag_row(*row_node, *this);
    update_expander();
    make_layout();
    draw_icons();
    redraw_text();
    listen_to_row();
    row_node->add_child(icon_node);
    row_node->add_child(text_node);
}

/// Lays the text out, and gives the text's node the shape of its background.
void node::make_layout() {
    constexpr float radius = 2;
    auto new_layout = shown_in->look().text_format->create_layout(std::wstring_view(text), 0, 0);
    const D2D_SIZE_F size = pixel_extent(*new_layout);
    const auto shape = factory::create_rounded_rect_geometry(
        {{0.5f, 0.5f, size.width + 3.5f, size.height + 1.5f}, radius, radius});
    text_node->set_clip_geometry(shape.get());
    layout = std::move(new_layout);
    text_width = size.width;
    text_height = size.height;
}

void node::redraw_text() {
    if (!text_node) return;
    const looks& look = shown_in->look();
    const bool is_focused = selected && shown_in->has_focus();
    const auto context = text_node->draw(false);
    const auto shape = text_node->get_clip_geometry();
    const auto paint_background = [&](const background& chosen) {
        context->fill_geometry(shape.get(), chosen.fill.get());
        context->draw_geometry(shape.get(), chosen.outline.get(), 1, nullptr);
    };
    if (is_focused) {
        paint_background(look.selected);
    } else if (highlighted || hot_count >= 1) {
        paint_background(look.hot);
    } else if (selected) {
        paint_background(look.inactive);
    }
    const auto& ink = is_focused ? look.selected_text_brush
                      : selected ? look.inactive_text_brush
                                 : look.text_brush;
    context->draw_text_layout(1, 1, layout.get(), ink.get(), D2D1_DRAW_TEXT_OPTIONS_NONE);
    context->commit();
}

float node::state_icon_width() const {
    return state_icon ? static_cast<float>(state_icon->get_size().width) : 0;
}

void node::draw_icons() {
    if (!icon_node) return;
    const auto context = icon_node->draw(false);
    if (state_icon) context->draw_bitmap(0, 0, state_icon.get());
    if (icon) context->draw_bitmap(state_icon_width(), 0, icon.get());
    context->commit();
}

/// Makes the expander where there is something to expand, and drops it where there is nothing any more.
void node::update_expander() {
    const bool wanted = expandable || !children.empty();
    if (!wanted && expander_node) {
        row_node->remove_child(expander_node);
        expander_node.reset();
    } else if (wanted && !expander_node) {
        expander_node = scene::create_node();
        row_node->add_child(expander_node);
        listen_to_expander();
        place_expander();
        draw_expander();
    }
}

void node::draw_expander() {
    constexpr float half_box = 6;  // the mark lies in the middle of the icon's first 12 by 12 pixels
    const looks& look = shown_in->look();
    const auto& shown = expanded ? look.expanded_icon : look.collapsed_icon;
    const auto context = expander_node->draw(false);
    context->draw_bitmap(-half_box, -half_box, shown.get());
    context->commit();
}

com::ptr<scene::INode> node::create_drag_image() {
    constexpr float distance = 4;  // between icon and text
    const float start = state_icon_width();
    const auto image = scene::create_node();
    const auto context = image->draw(false);
    if (icon) context->draw_bitmap(start, 1, icon.get());
    if (shown_in) {
        context->draw_text_layout(start + shown_in->icon_size() + distance, 0, layout.get(),
                                  shown_in->look().text_brush.get(), D2D1_DRAW_TEXT_OPTIONS_NONE);
    }
    context->commit();
    image->set_effect(scene::create_shadow_effect({1, 1, 1, 1}, 1).get());  // readable on any ground
    return image;
}

}  // namespace d2d::ui::tree
