#pragma once

#include "controls/testing/button_kind.h"
#include "controls/testing/fake_label.h"
#include "controls/testing/press_test.h"

#include <string>
#include <utility>

namespace d2d::fakes {

/// A fixture: a button of any kind with a label of its own, shown below the root, with styles that write down
/// how it looks.
class button_test : public press_test {
protected:
    static constexpr D2D_RECT_F rect{10, 20, 70, 40};
    static constexpr D2D_POINT_2F inside{40, 34};
    static constexpr D2D_POINT_2F on_label{18, 27};
    static constexpr D2D_POINT_2F outside{90, 80};

    void TearDown() override {
        button.reset();
        label.reset();
        style.reset();
        press_test::TearDown();
    }

    /// Makes a button with a label that covers a few pixels of its upper left corner, and shows it in the
    /// place of the previous one.
    void show_button(const button_kind& wanted) {
        kind = &wanted;
        if (button) root->remove_child(button->get_node());
        label = com::create_object<fake_label>(D2D_RECT_F{}, host_log());
        record(label->node, {2, 2, 10, 10});
        style = kind->make_style(host_log());
        button = kind->make(label.get(), rect, style.get());
        root->add_child(button->get_node());
        forget();
    }
    /// The same, enabled.
    void show_enabled(const button_kind& wanted) {
        show_button(wanted);
        button->set_enabled(true);
        forget();
    }
    [[nodiscard]] com::ptr<scene::INode> node() const { return button->get_node(); }

    /// How the button was drawn since the last time: "enabled hot, enabled". All else that was written down
    /// is forgotten.
    [[nodiscard]] std::string drawn() {
        std::string text;
        for (const auto& line : calls()) {
            if (line.starts_with("draw ")) append(text, state_of(line));
        }
        return text;
    }
    /// The same with what was clicked, in order: "enabled hot down, enabled hot, click 0".
    [[nodiscard]] std::string drawn_and_clicked() {
        std::string text;
        for (const auto& line : calls()) {
            if (line.starts_with("draw ")) append(text, state_of(line));
            if (line.starts_with("click ")) append(text, line);
        }
        return text;
    }

    /// Says "click 1" or "click 0".
    [[nodiscard]] std::function<void(bool)> click_log() {
        return [this](bool checked) { static_cast<void>(say(checked ? "click 1" : "click 0")); };
    }

    void move_to(D2D_POINT_2F point) { move(point.x, point.y); }
    /// A whole click with the left button.
    void click_at(D2D_POINT_2F point) {
        while_pressed([](const auto&) {});
        press_at(point);
    }

    const button_kind* kind = nullptr;
    com::ptr<fake_label> label;
    com::ptr<IUnknown> style;
    com::ptr<ui::IButton> button;

private:
    [[nodiscard]] static std::string state_of(const std::string& line) {
        return line.substr(line.find(": ") + 2);
    }
    static void append(std::string& text, const std::string& word) {
        text += (text.empty() ? "" : ", ") + word;
    }
};

/// The same, for each kind of button in turn: enabled, and without a handler.
class every_button : public button_test, public testing::WithParamInterface<button_kind> {
protected:
    void SetUp() override {
        button_test::SetUp();
        show_enabled(GetParam());
    }
    [[nodiscard]] bool latches() const { return GetParam().latches; }
    /// What follows "enabled" and the like where a click has latched.
    [[nodiscard]] std::string latched(const std::string& state) const {
        return latches() ? state + " checked" : state;
    }
};

}  // namespace d2d::fakes
