#include "toy.h"

#include "common/shapes.h"

#include <algorithm>

namespace playground {

using d2d::scene::INode;
namespace mouse = d2d::input::mouse;
namespace key = d2d::input::key;

toy::toy(const sketch::node& picture, D2D_POINT_2F centre, const sketch::palette& palette)
    : colours(palette), place(centre) {
    picture->set_hit_transparent(true);
    frame->add_child(picture);
    // The whole square answers to the mouse, not just what is painted in it.
    frame->set_clip_geometry(sketch::rounded(-reach, -reach, reach, reach, 14).get());
    frame->set_transform(sketch::moved(place.x, place.y));
}

void toy::final_construct() {
    const com::weak_ptr<toy> self(this);
    frame->add_mouse_handler([self](INode*, int, mouse::event event) {
        const auto alive = self.lock();
        return alive && alive->on_mouse(event);
    });
    frame->add_cursor_handler([](INode*, int, D2D_POINT_2F) { return LoadCursorW(nullptr, IDC_SIZEALL); });
    frame->set_key_handler([self](INode*, int, key::event event) {
        const auto alive = self.lock();
        return alive && alive->on_key(event);
    });
    frame->set_focus_handler(false, [self](INode*, INode* now) {
        const auto alive = self.lock();
        if (!alive) return;
        alive->focused = alive->frame == now;
        alive->record();
    });
}

bool toy::on_mouse(const mouse::event& event) {
    if (event.type == mouse::event_type::enter || event.type == mouse::event_type::leave) {
        under_mouse = event.type == mouse::event_type::enter;
        record();
        return false;
    }
    if (event.type != mouse::event_type::button_down || event.button != mouse::button::left) return false;
    frame->set_focus();
    if (frame->drag_detect(mouse::button::left)) drag(event.position);
    return true;
}

bool toy::on_key(const key::event& event) {
    if (!event.down) return false;
    const float step = event.modifiers & key::modifier::shift ? 1.0f : 8.0f;
    switch (event.key) {
        case VK_LEFT:
            move_to({place.x - step, place.y});
            return true;
        case VK_RIGHT:
            move_to({place.x + step, place.y});
            return true;
        case VK_UP:
            move_to({place.x, place.y - step});
            return true;
        case VK_DOWN:
            move_to({place.x, place.y + step});
            return true;
        default:
            return false;
    }
}

// All points are in the space that the node had when the drag began.
void toy::drag(D2D_POINT_2F grip) {
    const D2D_POINT_2F start = place;
    const bool dropped = frame->drag_loop(mouse::button::left, [&](D2D_POINT_2F point) {
        move_to({start.x + point.x - grip.x, start.y + point.y - grip.y});
        return true;
    });
    if (!dropped) move_to(start);
}

void toy::keep_within(D2D_RECT_F limits) {
    room = limits;
    move_to(place);
}

void toy::move_to(D2D_POINT_2F wanted) {
    const auto between = [](float value, float low, float high) {
        return std::max(low + reach, std::min(value, high - reach));
    };
    place = {between(wanted.x, room.left, room.right), between(wanted.y, room.top, room.bottom)};
    if (frame->set_transform(sketch::moved(place.x, place.y)) && on_moved) on_moved();
}

void toy::record() {
    const auto context = frame->draw(true);
    if (under_mouse)
        context->fill_geometry(sketch::rounded(-reach, -reach, reach, reach, 14).get(), colours.gleam.get());
    if (!focused) return;
    constexpr float ring = reach - 2;
    context->draw_geometry(sketch::rounded(-ring, -ring, ring, ring, 12).get(), colours.sun.get(), 3,
                           nullptr);
}

}  // namespace playground
