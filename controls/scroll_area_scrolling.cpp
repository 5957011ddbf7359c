// What moves the content of a scroll area: its owner, the bars and the wheel.

#include "com/weak_ptr.h"
#include "controls/node_placement.h"
#include "controls/scroll_area.h"
#include "win32/scope_exit.h"

#include <utility>

namespace d2d {
namespace {

namespace event_type = input::mouse::event_type;

}  // namespace

void scroll_area::listen_to_bars() {
    horizontal_listener = horizontal_bar->add_position_listener(make_listener(orientation::horizontal));
    vertical_listener = vertical_bar->add_position_listener(make_listener(orientation::vertical));
}

ui::IScrollBar::position_function scroll_area::make_listener(orientation of) {
    return [self = com::weak_ptr<scroll_area>(this), of, running = running_listeners](float value) {
        // Counted until the area has gone, which this may be the last to hold.
        ++*running;
        const win32::scope_exit end_count([count = running.get()] { --*count; });
        if (const com::ptr<scroll_area> area = self.lock()) area->show_bar_position(of, value);
    };
}

/// The bar has put its position inside the range.
void scroll_area::show_bar_position(orientation of, float value) {
    reporting_view([&] {
        apply(of == orientation::horizontal ? D2D_POINT_2F{value, scroll_position.y}
                                            : D2D_POINT_2F{scroll_position.x, value});
    });
}

void scroll_area::listen_to_wheel() {
    content_node->add_mouse_handler(
        [self = com::weak_ptr<scroll_area>(this)](scene::INode*, int depth, input::mouse::event event) {
            const com::ptr<scroll_area> area = self.lock();
            return area && area->handle_wheel(depth, event);
        });
}

bool scroll_area::handle_wheel(int depth, const input::mouse::event& event) {
    const bool is_wheel = event.type == event_type::wheel || event.type == event_type::horizontal_wheel;
    if (depth < 0 || !is_wheel) return false;
    const auto movement = wheel_movement(event, wheel_mode, scroll_position, content_bounds, view_size);
    if (movement) scroll_to({scroll_position.x + movement->x, scroll_position.y + movement->y});
    return true;
}

void scroll_area::set_scroll_position(float x, float y) {
    scroll_to({x, y});
}

void scroll_area::scroll_to(D2D_POINT_2F position) {
    const D2D_POINT_2F target = clamped_scroll_position(position, content_bounds, view_size);
    vertical_bar->set_position(target.y);
    horizontal_bar->set_position(target.x);
    reporting_view([&] { apply(target); });
}

void scroll_area::apply(D2D_POINT_2F position) {
    scroll_position = position;
    const D2D_POINT_2F offset = scroll_offset(position, scene::size_of(content_bounds), view_size, alignment);
    if (offset.x == applied_offset.x && offset.y == applied_offset.y) return;
    applied_offset = offset;
    // Read anew for each node: a bounds handler that hears of one may scroll.
    const auto move = [this](scene::INode& moved, bool across, bool down) {
        // No negative zeros, which a node takes for a change.
        move_node(moved, {across ? 0 - applied_offset.x : 0, down ? 0 - applied_offset.y : 0});
    };
    move(*content_node, true, true);
    move(*at(side::top).scrolled_node, true, false);
    move(*at(side::bottom).scrolled_node, true, false);
    move(*at(side::left).scrolled_node, false, true);
    move(*at(side::right).scrolled_node, false, true);
}

D2D_RECT_F scroll_area::get_view_rect() {
    return {scroll_position.x, scroll_position.y, scroll_position.x + view_size.width,
            scroll_position.y + view_size.height};
}

void scroll_area::set_view_changed_handler(view_function handler) {
    view_changed.set(std::move(handler));
}

void scroll_area::report_view_since(const D2D_RECT_F& before) {
    const D2D_RECT_F now = get_view_rect();
    if (!scene::same_edges(before, now)) view_changed.call(now);
}

}  // namespace d2d
