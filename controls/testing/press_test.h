#pragma once

#include "scene/testing/input_test.h"

#include <functional>
#include <optional>
#include <utility>

namespace d2d::fakes {

/// What of painting is drawn, without the state that it is drawn in.
[[nodiscard]] inline std::vector<std::string> drawing_of(std::vector<std::string> painted) {
    std::erase_if(painted, [](const std::string& line) {
        return !line.starts_with("Fill") && !line.starts_with("Draw");
    });
    return painted;
}

/// A fixture for what is pressed with the mouse: the root is shown, and a test plays the user in the loop of
/// a drag.
class press_test : public scene::fakes::input_test {
protected:
    using mouse_button = input::mouse::button;

    void SetUp() override {
        input_test::SetUp();
        show();
    }

    void press_at(D2D_POINT_2F point, std::optional<mouse_button> pressed = mouse_button::left) {
        edge->on_mouse_event({input::mouse::event_type::button_down, pressed, 0, point, 0});
    }
    /// What the user does between press and release, in the loop of the next drags.
    void while_pressed(std::function<void(const std::function<bool(D2D_POINT_2F)>& moved)> actions) {
        site.drag = [actions = std::move(actions)](const auto& moved) {
            actions(moved);
            return true;
        };
    }
    [[nodiscard]] lines drawing() { return drawing_of(painted()); }
};

}  // namespace d2d::fakes
