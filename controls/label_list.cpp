#include "controls/label_list.h"

#include "com/object.h"
#include "controls/control_impl.h"
#include "controls/label_list_item.h"
#include "controls/style_brush.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace d2d::ui {

label_list::label_list(IStyle* given_style)
    : style(resolve_style<IStyle>(given_style)), scroll_area(create_scroll_area({}, style.get())) {
    scroll_area->add_content(content_node);
}

void label_list::final_release() {
    for (const auto& row : items) row->leave_list();
}

scene::layout::metrics label_list::measure() {
    using scene::layout::unlimited;
    return {{}, {5, 5}, {unlimited, unlimited}, scroll_area->measure().preferred_size};
}

// Labels, and handlers that hear of them, may drop the list: each change keeps it.

void label_list::insert_item(int index, ILabel* label, int value) {
    const com::ptr<label_list> keep = this;
    const auto added = com::create_object<item>(*this, label, value);
    const std::size_t end = items.size();
    const std::size_t place = index < 0 ? end : std::min(static_cast<std::size_t>(index), end);
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(place), added);
    added->add_to(*stack, place);
    content_node->add_child(added->node);
    lay_out();
}

void label_list::reserved1() {
    throw std::logic_error("not implemented");
}

void label_list::reserved2() {
    throw std::logic_error("not implemented");
}

void label_list::clear() {
    const com::ptr<label_list> keep = this;
    stack = scene::layout::create_stack(0);
    const auto former = std::exchange(items, {});
    selected = {};
    for (const auto& row : former) {
        row->leave_list();
        content_node->remove_child(row->node);
        row->node->clear();
    }
    lay_out();
}

std::optional<int> label_list::get_selection() {
    const auto row = selected.lock();
    return row ? std::optional(row->value) : std::nullopt;
}

void label_list::reserved3() {
    throw std::logic_error("not implemented");
}

bool label_list::is_selected(const item& row) const {
    return selected.lock() == &row;
}

com::ptr<scene::IBrush> label_list::brush(std::string_view key) const {
    return style_brush(*style->get_settings(), key);
}

/// As the labels measure now. They may be a client's, and do what they like: of layouts within a layout the
/// innermost counts.
void label_list::lay_out() {
    const auto laid_out = stack;
    const unsigned layout = ++layouts;
    const D2D_SIZE_F size = laid_out->measure().preferred_size;
    if (layout != layouts) return;
    const D2D_RECT_F content{0, 0, size.width, size.height};
    laid_out->arrange(content);
    if (layout == layouts) scroll_area->set_content_bounds(content);
}

void label_list::press(item& row, const input::mouse::event& event) {
    content_node->set_focus();
    if (!row.is_in_list()) return;  // whoever heard of the focus has cleared the list
    if (event.button == input::mouse::button::left && !is_selected(row)) select(row);
}

void label_list::select(item& row) {
    const auto idle = brush("idle.text");
    const auto chosen = brush("selected.text");
    const auto former = selected.lock();
    selected = com::weak_ptr<item>(&row);
    if (former) {
        former->label->set_brush(idle);
        former->redraw(*this);
    }
    if (!is_selected(row)) return;  // the label has cleared the list
    row.label->set_brush(chosen);
    row.redraw(*this);
}

com::ptr<ILabelList> create_label_list(IStyle* style) {
    return com::create_object<label_list>(style);
}

}  // namespace d2d::ui
