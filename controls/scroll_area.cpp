#include "controls/scroll_area.h"

#include <stdexcept>
#include <utility>

namespace d2d {
namespace {

com::ptr<ui::IScrollBar> make_bar(ui::IScrollBar::orientation orientation, ui::IScrollAreaStyle& style) {
    return ui::create_scroll_bar(orientation, {0, 0, 1, 1, 1}, {0, 0, 1, 1},
                                 style.get_scroll_bar_style().get());
}

}  // namespace

scroll_area::scroll_area(const D2D_RECT_F& initial_rect, IUnknown* style_source)
    : control_impl(style_source, initial_rect),
      vertical_bar(make_bar(ui::IScrollBar::orientation::vertical, *style)),
      horizontal_bar(make_bar(ui::IScrollBar::orientation::horizontal, *style)) {}

void scroll_area::final_construct() {
    node->add_child(viewport_node);
    viewport_node->add_child(content_node);
    content_node->set_hit_mode(scene::INode::hit_solid);
    listen_to_bars();
    listen_to_wheel();
    update(true);
}

scroll_area::~scroll_area() {
    // A bar that is calling its listeners lets nobody remove one. It will not outlive this for long.
    if (*running_listeners > 0) return;
    horizontal_bar->remove_position_listener(horizontal_listener);
    vertical_bar->remove_position_listener(vertical_listener);
}

void scroll_area::reserved() {
    throw std::logic_error("not implemented");
}

void scroll_area::add_content(com::ptr<scene::INode> added) {
    content_node->add_child(std::move(added));
}

void scroll_area::remove_content(com::ptr<scene::INode> removed) {
    content_node->remove_child(std::move(removed));
}

scroll_area::margin& scroll_area::margin_at(int number) {
    if (number < 0 || number >= static_cast<int>(margins.size())) {
        throw std::logic_error("bad margin specified");
    }
    return margins[static_cast<std::size_t>(number)];
}

void scroll_area::add_margin_scrolled_node(int number, com::ptr<scene::INode> added) {
    margin_at(number).scrolled_node->add_child(std::move(added));
}

void scroll_area::remove_margin_scrolled_node(int number, com::ptr<scene::INode> removed) {
    margin_at(number).scrolled_node->remove_child(std::move(removed));
}

void scroll_area::add_margin_fixed_node(int number, com::ptr<scene::INode> added) {
    margin_at(number).fixed_node->add_child(std::move(added));
}

void scroll_area::remove_margin_fixed_node(int number, com::ptr<scene::INode> removed) {
    margin_at(number).fixed_node->remove_child(std::move(removed));
}

void scroll_area::set_wheel_mode(int mode) {
    wheel_mode = static_cast<scroll_wheel_mode>(mode);
}

void scroll_area::set_alignment(int x, int y) {
    alignment = {x, y};
}

}  // namespace d2d

namespace d2d::ui {

com::ptr<IScrollArea> create_scroll_area(D2D_RECT_F rect, IUnknown* style) {
    return com::create_object<scroll_area>(rect, style);
}

}  // namespace d2d::ui
