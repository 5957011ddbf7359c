#include "controls/popup_options/control.h"

#include "com/object.h"
#include "com/weak_ptr.h"
#include "controls/node_placement.h"
#include "d2d/factory.h"
#include "scene/rectangle.h"

#include <algorithm>
#include <utility>

namespace d2d::popup_options {

using input::mouse::button;
namespace event_type = input::mouse::event_type;

control::control(const D2D_RECT_F& control_rect, std::span<const option> shown, IUnknown* style_source)
    : control_impl(style_source, control_rect), options(shown.begin(), shown.end()) {
    for (const option& each : options) each.label->set_brush(style->label_brush(true, false));
    shape_outline();
}

void control::final_construct() {
    const com::weak_ptr<control> self(this);
    node->add_mouse_handler([self](scene::INode*, int depth, input::mouse::event event) {
        const auto alive = self.lock();
        return alive && alive->handle_mouse(depth, event);
    });
    node->set_focus_handler(false, [self](scene::INode*, scene::INode*) {
        if (const auto alive = self.lock()) alive->refresh();
    });
    refresh();
}

void control::final_release() {
    if (list) list->end_floating();
}

scene::layout::metrics control::measure() {
    constexpr float margin = 4;
    constexpr float room = 6;  // for the frame
    if (options.empty()) return {{margin, margin, 0, 0}, {}, {}, {}};
    auto result = options.front().label->measure();
    for (const option& each : std::span(options).subspan(1)) {
        const auto other = each.label->measure();
        result.min_size.width = std::max(result.min_size.width, other.min_size.width);
        result.min_size.height = std::max(result.min_size.height, other.min_size.height);
        result.max_size.height = std::max(result.max_size.height, other.max_size.height);
        result.preferred_size.width = std::max(result.preferred_size.width, other.preferred_size.width);
        result.preferred_size.height = std::max(result.preferred_size.height, other.preferred_size.height);
    }
    for (auto* const size : {&result.min_size, &result.max_size, &result.preferred_size}) {
        size->width += room;
        size->height += room;
    }
    result.max_size.width = scene::layout::unlimited;
    return result;
}

void control::arrange(D2D_RECT_F new_rect) {
    rect = new_rect;
    if (!list) show_selected();
    shape_outline();
    refresh();
}

void control::set_on_change(change_function handler) {
    on_change.set(std::move(handler));
}

void control::set_selected(std::optional<int> id) {
    if (id == selected) return;
    hide_selected();
    selected = id;
    if (!list) show_selected();
}

/// Null when nothing is selected.
com::ptr<scene::INode> control::selected_node() const {
    const auto found = std::find_if(options.begin(), options.end(),
                                    [this](const option& each) { return each.id == selected; });
    return found == options.end() ? nullptr : found->label->get_node();
}

/// Centres the label. Not for a time when an open list has it.
void control::show_selected() {
    const auto label_node = selected_node();
    if (!label_node) return;
    move_node(*label_node, {(rect.left + rect.right) * 0.5f, (rect.top + rect.bottom) * 0.5f});
    if (label_node->get_parent() != node) node->add_child(label_node);
}

/// Where an open list has the label, it stays there.
void control::hide_selected() {
    if (const auto label_node = selected_node()) node->remove_child(label_node);
}

void control::shape_outline() {
    constexpr float radius = 2.5f;
    outline = factory::create_rounded_rect_geometry({scene::inset(rect, 0.5f), radius, radius});
    node->set_clip_geometry(outline.get());
}

void control::refresh() {
    const auto context = node->draw(false);
    if (!list) style->draw_frame(context.get(), outline.get(), mouse.is_hot(), node->has_focus(false));
    context->commit();
}

/// Kept: a press on the label, a node below, gives the focus and opens nothing.
bool control::handle_mouse(int depth, const input::mouse::event& event) {
    mouse.count_hover(event, [this] { refresh(); });
    if (event.type != event_type::button_down) return false;
    node->set_focus();
    if (event.button != button::left || depth != 0) return false;
    if (!list) open();
    return true;
}

void control::open() {
    try {
        hide_selected();
        list = option_list::create(style, rect, options,
                                   [self = com::weak_ptr<control>(this)](std::optional<int> choice) {
                                       if (const auto alive = self.lock()) alive->end(choice);
                                   });
        refresh();
        const auto opened = list;  // messages that arrive may end it
        opened->float_above(*node);
    } catch (...) {
        close();
        throw;
    }
}

void control::end(std::optional<int> choice) {
    if (!list) return;
    list->take_apart();
    const bool changes = choice && choice != selected;
    if (changes) selected = choice;
    show_selected();
    try {
        if (changes) on_change.call(selected);
    } catch (...) {
        close();
        throw;
    }
    close();
}

void control::close() {
    if (const auto ended = std::exchange(list, nullptr)) ended->end_floating();
    show_selected();
    refresh();
}

}  // namespace d2d::popup_options

namespace d2d::ui {

com::ptr<IPopupOptions> create_popup_options(D2D_RECT_F rect,
                                             std::initializer_list<IPopupOptions::option> options,
                                             IUnknown* style) {
    return com::create_object<popup_options::control>(rect, std::span(options), style);
}

}  // namespace d2d::ui
