#include "controls/popup_options/option_row.h"

#include "controls/node_placement.h"
#include "d2d/factory.h"

#include <cmath>

namespace d2d::popup_options {
namespace {

constexpr float radius = 2;

}  // namespace

option_row::option_row(const ui::IPopupOptions::option& option, D2D_SIZE_F size,
                       ui::IPopupOptionsStyle& style)
    : id(option.id),
      label(option.label),
      geometry(factory::create_rounded_rect_geometry({{0, 0, size.width, size.height}, radius, radius})) {
    const auto label_node = label->get_node();
    detach_node(*label_node);
    show_unhovered(style);
    move_node(*label_node, {size.width * 0.5f, std::floor(size.height * 0.5f)});
    node->add_child(label_node);
    redraw(style);
}

void option_row::release_label() const {
    node->remove_child(label->get_node());
}

void option_row::count_hover(const input::mouse::event& event, ui::IPopupOptionsStyle& style) {
    mouse.count_hover(event, [&] { redraw(style); });
}

void option_row::set_hovered(bool value, ui::IPopupOptionsStyle& style) {
    if (hovered == value) return;
    hovered = value;
    label->set_brush(style.label_brush(true, hovered));
    redraw(style);
}

void option_row::show_unhovered(ui::IPopupOptionsStyle& style) const {
    label->set_brush(style.label_brush(true, false));
}

void option_row::redraw(ui::IPopupOptionsStyle& style) const {
    const auto context = node->draw(false);
    style.draw_option(context.get(), geometry.get(), mouse.is_hot(), hovered);
    context->commit();
}

}  // namespace d2d::popup_options
