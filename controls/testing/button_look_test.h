#pragma once

#include "controls/testing/answers.h"
#include "controls/testing/button_test.h"
#include "d2d/ui/ITextLabel.h"
#include "scene/testing/metrics_text.h"

#include <functional>
#include <string>

namespace d2d::fakes {

/// A fixture: a button in the default style with a label of text, brought into every state that it can be in.
class button_look_test : public button_test {
protected:
    /// A state. A button that is down is hot.
    struct look {
        bool enabled, hot, down, checked, focused, latching;
    };
    /// What is painted of a button in a state.
    using lines_of = std::function<lines(const look&)>;

    static constexpr const char* black = "0 0 0 1";
    static constexpr const char* white = "1 1 1 1";
    static constexpr const char* grey = "0.5 0.5 0.5 1";
    static constexpr const char* dark = "0.3 0.3 0.7 1";
    static constexpr const char* pale = "0.9 0.9 1 1";
    static constexpr const char* light_grey = "0.827451 0.827451 0.827451 1";

    void TearDown() override {
        text.reset();
        button_test::TearDown();
    }

    void show_default(const button_kind& wanted) {
        if (button) root->remove_child(node());
        text = ui::create_text_label(L"Sail", nullptr, nullptr);
        button = wanted.make(text.get(), rect, nullptr);
        root->add_child(node());
        forget();
    }

    /// Compares what each state paints.
    void for_each_look(const button_kind& wanted, const lines_of& expected) {
        constexpr D2D_POINT_2F hit{20, 30};  // on a mark too
        for (unsigned bits = 0; bits < 32; ++bits) {
            const auto has = [bits](unsigned bit) { return (bits >> bit & 1) != 0; };
            const look shown{has(0), has(1), has(2), has(3), has(4), wanted.latches};
            if (shown.down && !shown.hot) continue;
            show_default(wanted);
            bring_into(shown, hit, outside, [&] {
                EXPECT_EQ(expected(shown), drawing())
                    << state_text(shown.enabled, shown.hot, shown.down, shown.checked, shown.focused);
            });
        }
    }
    /// Brings the button into a state with the mouse on or off it, and runs `action` there.
    void bring_into(const look& wanted, D2D_POINT_2F on_it, D2D_POINT_2F off_it,
                    const std::function<void()>& action) {
        button->set_enabled(true);
        button->set_checked(wanted.checked);
        move_to(wanted.hot ? on_it : off_it);
        const auto settle = [&] {
            edge->on_focus_gained();
            (wanted.focused ? node() : root)->set_focus();
            button->set_enabled(wanted.enabled);
            action();
        };
        if (!wanted.down) return settle();
        while_pressed([&](const auto&) { settle(); });
        press_at(on_it);
    }

    [[nodiscard]] static std::string fill_text(const std::string& shape, const std::string& color) {
        return "FillGeometry " + shape + " brush(" + color + ")";
    }
    [[nodiscard]] static std::string stroke_text(const std::string& shape, const std::string& color) {
        return "DrawGeometry " + shape + " brush(" + color + ") 1 null";
    }
    [[nodiscard]] std::string label_text(const std::string& color) {
        const D2D_RECT_F own = text->get_rect();
        return scene::fakes::call_text("DrawTextLayout", own.left, own.top, "layout brush(" + color + ") 0");
    }
    [[nodiscard]] static const char* background_of(const look& shown) {
        if (!shown.enabled) return shown.hot ? light_grey : white;
        if (shown.down) return dark;
        if (shown.checked && shown.latching) return grey;
        return shown.hot ? pale : white;
    }
    [[nodiscard]] static const char* outline_of(const look& shown) {
        if (!shown.enabled) return shown.hot ? black : grey;
        return shown.hot || shown.focused ? dark : grey;
    }

    com::ptr<ui::ITextLabel> text;
};

}  // namespace d2d::fakes
