// What the mouse does in a label table.

#include "com/weak_ptr.h"
#include "controls/drag_in_view.h"
#include "controls/label_table/control.h"

#include <algorithm>
#include <utility>

namespace d2d::ui::label_table {
namespace {

using input::mouse::button;
namespace event_type = input::mouse::event_type;

bool is_left_press(const input::mouse::event& event) noexcept {
    return event.type == event_type::button_down && event.button == button::left;
}

/// A drag that changes nothing: it lasts until the button goes up.
void drag_without_effect(scene::INode& node) {
    drag_in_view(node, button::left, [](D2D_POINT_2F) { return false; });
}

}  // namespace

void control::listen(scene::INode& node, mouse_operation operation) {
    node.add_mouse_handler(
        [self = com::weak_ptr<control>(this), operation](scene::INode*, int, const mouse_event& event) {
            const auto alive = self.lock();
            return alive && (*alive.*operation)(event);
        });
}

bool control::handle_header_mouse(const mouse_event& event) {
    if (!is_left_press(event)) return false;
    const auto headings = std::as_const(shown)[header];
    const auto pressed = row_at(headings, event.position.y);
    if (!pressed) return false;
    const row_key key = headings[*pressed]->key;  // the row may go while messages are dispatched
    if (drag_detect_in_view(*header_node, button::left)) drag_without_effect(*header_node);
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
    const auto target = body_rows()[*pressed]->shared_from_this();
    const bool dragged = drag_detect_in_view(*body_node, button::left);
    // The table may have changed while messages were dispatched.
    if (const auto place = place_of(*target, *pressed)) select_by_click(*place, event.flags);
    if (dragged) drag_without_effect(*body_node);
    return true;
}

std::optional<std::size_t> control::place_of(const row& wanted, std::size_t former) const noexcept {
    const auto all = body_rows();
    if (former < all.size() && all[former] == &wanted) return former;
    const auto found = std::find(all.begin(), all.end(), &wanted);
    if (found == all.end()) return std::nullopt;
    return static_cast<std::size_t>(found - all.begin());
}

}  // namespace d2d::ui::label_table
