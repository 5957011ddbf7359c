#include "controls/scroll_bar.h"

#include "com/object.h"
#include "com/weak_ptr.h"
#include "controls/drag_in_view.h"
#include "controls/node_placement.h"
#include "scene/matrix.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace d2d {

using input::mouse::button;
namespace event_type = input::mouse::event_type;

scroll_bar::scroll_bar(orientation bar_orientation, const range& bar_range, const D2D_RECT_F& bar_rect,
                       IUnknown* style_source)
    : control_impl(style_source, bar_rect), current(bar_range), axis(bar_orientation) {}

void scroll_bar::final_construct() {
    arrange(rect);
    draw_thumb();
    place_thumb();
    node->add_child(thumb_node);
    const com::weak_ptr<scroll_bar> self(this);
    node->add_mouse_handler([self](scene::INode*, int depth, input::mouse::event event) {
        const auto alive = self.lock();
        if (alive && depth >= 0) alive->press_track(event);
        return false;
    });
    thumb_node->add_mouse_handler([self](scene::INode*, int depth, input::mouse::event event) {
        const auto alive = self.lock();
        const bool grips =
            event.type == event_type::button_down && event.button == button::left && depth >= 0;
        if (!alive || !grips) return false;
        alive->drag_thumb(event.position);
        return true;
    });
}

void scroll_bar::final_release() {
    thumb_node->clear();
}

scene::layout::metrics scroll_bar::measure() {
    throw std::logic_error("not implemented");
}

void scroll_bar::arrange(D2D_RECT_F new_rect) {
    rect = new_rect;
    draw_thumb();
    place_thumb();
    node->set_clip_rect(rect);
    draw_track();
}

void scroll_bar::set_position(float position) {
    current.position = geometry().clamped(position);
    place_thumb();
}

void scroll_bar::set_range(range new_range) {
    current = new_range;
    draw_thumb();
    place_thumb();
}

scroll_bar::position_token scroll_bar::add_position_listener(position_function listener) {
    return &listeners.emplace_back(std::move(listener));
}

void scroll_bar::remove_position_listener(position_token token) {
    const auto entry = std::find_if(listeners.begin(), listeners.end(),
                                    [=](const position_function& listener) { return &listener == token; });
    if (entry != listeners.end()) listeners.erase(entry);
}

void scroll_bar::draw_track() {
    const auto context = node->draw(false);
    style->draw_track(context.get(), rect, false, false);
    context->commit();
}

void scroll_bar::draw_thumb() {
    const D2D_SIZE_F size = geometry().thumb_size();
    const auto context = thumb_node->draw(false);
    style->draw_thumb(context.get(), {0, 0, size.width, size.height}, false, false);
    context->commit();
}

void scroll_bar::place_thumb() {
    place_thumb(geometry().thumb_place());
}

void scroll_bar::place_thumb(D2D_POINT_2F place) {
    move_node(*thumb_node, place);
}

void scroll_bar::press_track(const input::mouse::event& event) {
    if (event.type != event_type::button_down && event.type != event_type::double_click) return;
    if (event.button == button::left) {
        if (const auto target = geometry().paged_towards(event.position)) move_to(*target);
    } else if (event.button == button::right) {
        move_to(geometry().centred_at(event.position));
        drag_in_view(*node, button::right, [this](D2D_POINT_2F point) {
            move_to(geometry().centred_at(point));
            return false;
        });
    }
}

/// `grip` is in the thumb's space.
void scroll_bar::drag_thumb(D2D_POINT_2F grip) {
    const D2D_POINT_2F start =
        scene::map_point(grip, scene::get_transformation_matrix(thumb_node.get(), node.get()));
    const D2D_MATRIX_3X2_F transform = thumb_node->get_transform();
    const D2D_POINT_2F origin{transform._31, transform._32};
    drag_in_view(*node, button::left, [=, this](D2D_POINT_2F point) {
        drag_to(geometry().dragged(origin, {point.x - start.x, point.y - start.y}));
        return false;
    });
}

/// The thumb stays under the pointer, also when a listener sets another position.
void scroll_bar::drag_to(const scroll_bar_geometry::drag_result& target) {
    current.position = target.position;
    tell_listeners(target.position, [&] { place_thumb(target.place); });
}

void scroll_bar::move_to(float position) {
    const float target = geometry().clamped(position);
    if (target == current.position) return;
    current.position = target;
    tell_listeners(target, [this] { place_thumb(); });
}

/// Ends by `place`, also when a listener throws: the thumb never stays behind.
template <class Place>
void scroll_bar::tell_listeners(float position, Place place) {
    try {
        for (const position_function& listener : listeners) listener(position);
    } catch (...) {
        place();
        throw;
    }
    place();
}

}  // namespace d2d

namespace d2d::ui {

com::ptr<IScrollBar> create_scroll_bar(IScrollBar::orientation orientation, IScrollBar::range range,
                                       D2D_RECT_F rect, IUnknown* style) {
    return com::create_object<scroll_bar>(orientation, range, rect, style);
}

}  // namespace d2d::ui
