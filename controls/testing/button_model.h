#pragma once

#include "controls/testing/recording_style.h"

#include <optional>
#include <string>
#include <vector>

namespace d2d::fakes {

/// What a button should do, in plain words: its state, and a line for each time that it is drawn ("enabled
/// hot") or clicked ("click 1").
class button_model {
public:
    enum class focus { none, button, elsewhere };

    explicit button_model(bool latches) : latching(latches) {}

    std::vector<std::string> said;
    bool latching;
    int hovering = 0;
    bool down = false;
    bool checked = false;
    std::optional<bool> told_enabled;
    bool has_handler = false;
    bool window_has_focus = false;
    focus focused = focus::none;

    [[nodiscard]] bool enabled() const { return told_enabled ? *told_enabled : has_handler; }
    void draw() {
        said.push_back(
            state_text(enabled(), hovering > 0, down, checked, window_has_focus && focused == focus::button));
    }

    void set_enabled(bool value) {
        change_enabled([&] { told_enabled = value; });
    }
    void set_handler(bool value) {
        change_enabled([&] { has_handler = value; });
    }
    void set_checked(bool value) {
        if (!latching || checked == value) return;
        checked = value;
        draw();
    }
    void hover(int change) {
        for (; change > 0; --change) count(1);
        for (; change < 0; ++change) count(-1);
    }

    void window_focus(bool has) {
        if (!has && !window_has_focus) return;
        window_has_focus = has;
        if (focused == focus::button) draw();
    }
    void move_focus(focus to) {
        const focus from = focused;
        focused = to;
        if (!window_has_focus) return;
        if (from == focus::button) draw();
        if (to == focus::button) draw();
    }
    /// Taken away from whoever has it; unlike a change of the window's focus that is always told.
    void release_focus() {
        const focus from = focused;
        focused = focus::none;
        if (from == focus::button) draw();
    }

    /// A press of the left button, or of another one. True: it is being dragged now.
    [[nodiscard]] bool press(bool left) {
        if (!enabled()) return false;
        move_focus(focus::button);
        if (!left) return false;
        ++hovering;
        down = true;
        draw();
        return true;
    }
    void drag(bool over) {
        if (down == over) return;
        down = over;
        draw();
    }
    void release() {
        const bool clicked = down;
        if (clicked && latching) checked = !checked;
        down = false;
        --hovering;
        draw();
        if (clicked && has_handler) said.emplace_back(checked ? "click 1" : "click 0");
    }

private:
    template <class Change>
    void change_enabled(Change&& change) {
        const bool before = enabled();
        change();
        if (enabled() != before) draw();
    }
    void count(int change) {
        const bool before = hovering > 0;
        hovering += change;
        if ((hovering > 0) != before) draw();
    }
};

}  // namespace d2d::fakes
