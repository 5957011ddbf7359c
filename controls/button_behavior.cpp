#include "controls/button_behavior.h"

#include <utility>

namespace d2d {

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
    mouse.count_hover(event, [this] { refresh(); });
    return false;
}

void button_behavior::press(scene::INode& node, input::mouse::button button) {
    const bool clicked = mouse.press(node, button, [this] { refresh(); });
    if (clicked && latching) checked = !checked;
    refresh();
    if (clicked) on_click.call(checked);
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
