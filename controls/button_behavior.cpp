#include "controls/button_behavior.h"

#include <utility>

namespace d2d {

/// The time from a press to its release: the button is hot and down. Ends with the drag loop, whichever way
/// that ends.
class button_behavior::held_down {
public:
    explicit held_down(button_behavior& button) noexcept : held(button) {
        ++held.hover_count;
        held.down = true;
    }
    held_down(const held_down&) = delete;
    held_down& operator=(const held_down&) = delete;
    ~held_down() {
        held.down = false;
        --held.hover_count;
    }

private:
    button_behavior& held;
};

void button_behavior::change_checked(bool value) {
    if (!latching || checked == value) return;
    checked = value;
    refresh();
}

template <class Change>
void button_behavior::change_enabled(Change&& change) {
    const bool before = is_enabled();
    change();
    if (is_enabled() != before) refresh();
}

void button_behavior::override_enabled(bool value) {
    change_enabled([&] { enabled_override = value; });
}

void button_behavior::replace_on_click(click_function handler) {
    const auto previous = on_click;  // what it holds may be the last reference to the button: goes at the end
    change_enabled([&] { on_click.set(std::move(handler)); });
}

bool button_behavior::handle_mouse(scene::INode& node, const input::mouse::event& event) {
    namespace event_type = input::mouse::event_type;
    if (event.type == event_type::button_down && is_enabled()) {
        node.set_focus();
        if (event.button != input::mouse::button::left) return false;
        press(node, *event.button);
        return true;
    }
    if (event.type == event_type::enter) count_hover(1);
    if (event.type == event_type::leave) count_hover(-1);
    return false;
}

void button_behavior::press(scene::INode& node, input::mouse::button button) {
    bool clicked = false;
    try {
        clicked = ends_inside(node, button);
    } catch (...) {
        refresh();  // what a handler inside the loop has thrown goes on, and the button is not left pressed
        throw;
    }
    if (clicked && latching) checked = !checked;
    refresh();
    if (clicked) on_click.call(checked);
}

bool button_behavior::ends_inside(scene::INode& node, input::mouse::button button) {
    const held_down pressed(*this);
    refresh();
    node.drag_loop(button, [this, &node](D2D_POINT_2F point) {
        change_down(node.hit_test(point));
        return false;
    });
    return down;
}

void button_behavior::change_down(bool value) {
    if (std::exchange(down, value) != value) refresh();
}

void button_behavior::count_hover(int change) {
    const bool before = is_hot();
    hover_count += change;
    if (is_hot() != before) refresh();
}

scene::layout::metrics button_behavior::measure_with_mark() const {
    constexpr float distance = 2;
    auto result = label->measure();
    const float mark = result.preferred_size.height;
    result.min_size.height = result.max_size.height = mark;
    for (auto* const size : {&result.min_size, &result.max_size, &result.preferred_size}) {
        size->width += mark + distance;
    }
    return result;
}

}  // namespace d2d
