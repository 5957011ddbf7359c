// What the mouse does in a label table.

#include "com/weak_ptr.h"
#include "controls/label_table/control.h"

#include <utility>

namespace d2d::ui::label_table {
namespace {

using input::mouse::button;
namespace event_type = input::mouse::event_type;

bool is_left_press(const input::mouse::event& event) noexcept {
    return event.type == event_type::button_down && event.button == button::left;
}

/// A drag that changes nothing: it lasts until the button goes up.
void drag_without_effect(const com::ptr<scene::INode>& node) {
    node->drag_loop(button::left, [](D2D_POINT_2F) { return false; });
}

}  // namespace

void control::listen_to_header() {
    header_node->add_mouse_handler(
        [self = com::weak_ptr<control>(this)](scene::INode*, int, const mouse_event& event) {
            const auto alive = self.lock();
            return alive && alive->handle_header_mouse(event);
        });
}

void control::listen_to_body() {
    body_node->add_mouse_handler(
        [self = com::weak_ptr<control>(this)](scene::INode*, int, const mouse_event& event) {
            const auto alive = self.lock();
            return alive && alive->handle_body_mouse(event);
        });
}

bool control::handle_header_mouse(const mouse_event& event) {
    if (!is_left_press(event)) return false;
    const auto headings = std::as_const(shown)[header];
    const auto pressed = row_at(headings, event.position.y);
    if (!pressed) return false;
    const row_key key = headings[*pressed]->key;  // the row may go while messages are dispatched
    if (header_node->drag_detect(button::left)) drag_without_effect(header_node);
    on_header_click.call(key);
    return true;
}

bool control::handle_body_mouse(const mouse_event& event) {
    switch (event.type) {
        case event_type::enter:
        case event_type::move:
            set_hot_row(row_at(body_rows(), event.position.y));
            return false;
        case event_type::leave:
            // Also when it leaves a label for the gap beside it: where it is now, the next move tells.
            set_hot_row(std::nullopt);
            return false;
        default:
            return is_left_press(event) && press_body(event);
    }
}

bool control::press_body(const mouse_event& event) {
    const auto pressed = row_at(body_rows(), event.position.y);
    if (!pressed) return false;
    const row* const target = body_rows()[*pressed];
    const bool dragged = body_node->drag_detect(button::left);
    // The table may have changed while messages were dispatched.
    const bool still_there = *pressed < body_rows().size() && body_rows()[*pressed] == target;
    if (still_there) select_by_click(*pressed, event.flags);
    if (dragged) drag_without_effect(body_node);
    return true;
}

}  // namespace d2d::ui::label_table
