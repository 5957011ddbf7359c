#include "controls/tree/node.h"
#include "controls/tree/view.h"
#include "scene/rectangle.h"
#include "win32/scope_exit.h"

namespace d2d::ui::tree {

namespace event_type = input::mouse::event_type;

void node::listen_to_row() {
    const auto handler = [weak = com::weak_ptr<node>(this)](scene::INode* source, int,
                                                            input::mouse::event event) {
        const auto self = weak.lock();
        return self && self->handle_row_mouse(*source, event);
    };
    icon_node->add_mouse_handler(handler);
    text_node->add_mouse_handler(handler);
}

void node::listen_to_expander() {
    expander_node->add_mouse_handler(
        [weak = com::weak_ptr<node>(this)](scene::INode*, int, input::mouse::event event) {
            const auto self = weak.lock();
            return self && self->handle_expander_mouse(event);
        });
}

bool node::handle_row_mouse(scene::INode& source, const input::mouse::event& event) {
    if (!shown_in) return false;
    if (event.type == event_type::enter) count_hot(1);
    if (event.type == event_type::leave) count_hot(-1);
    if (event.type != event_type::button_down) return false;
    press_row(source, event);
    return true;
}

void node::press_row(scene::INode& source, const input::mouse::event& event) {
    D2D_POINT_2F point = event.position;
    scene::map_points(&source, row_node.get(), &point, 1);
    const auto button = event.button.value_or(input::mouse::button::left);
    const bool dragged = row_node->drag_detect(button);
    if (!shown_in) return;  // taken out meanwhile, or the view is gone, and perhaps its handler
    const auto keep = shown_in->keep_alive();
    if (!dragged && button == input::mouse::button::right) return open_context_menu();
    shown_in->select(*this);
    if (dragged && shown_in) shown_in->begin_drag(*this, point, button);
}

void node::open_context_menu() {
    count_hot(1);
    const win32::scope_exit cooled([this] {
        if (hot_count > 0) count_hot(-1);  // zero already where the row has left the view
    });
    shown_in->open_context_menu(*this);
}

void node::count_hot(int change) {
    const bool was_hot = hot_count >= 1;
    hot_count += change;
    if ((hot_count >= 1) != was_hot) redraw_text();
}

bool node::handle_expander_mouse(const input::mouse::event& event) {
    if (!shown_in || event.type != event_type::button_down || event.button != input::mouse::button::left) {
        return false;
    }
    const auto pressed = expander_node;
    bool is_on_it = true;
    pressed->drag_loop(input::mouse::button::left, [&](D2D_POINT_2F point) {
        is_on_it = pressed->hit_test(point);
        return false;
    });
    if (is_on_it && expander_node == pressed) toggle();
    return true;
}

}  // namespace d2d::ui::tree
