// Buttons in random use, presses within presses included, compared with a plain model.

#include "controls/testing/button_model.h"
#include "controls/testing/button_test.h"
#include "support/random_seed.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::button_model;

class random_button : public fakes::every_button {
protected:
    using focus = button_model::focus;
    using moved_function = std::function<bool(D2D_POINT_2F)>;

    void SetUp() override {
        every_button::SetUp();
        show_button(GetParam());
        elsewhere = filled({80, 70, 95, 90}, root);
        edge->on_focus_lost();
        forget();
        site.drag = [this](const moved_function& moved) {
            expected.said.emplace_back("drag");
            while_dragged(moved);
            compare();
            return one_in(2);
        };
    }
    void TearDown() override {
        elsewhere.reset();
        every_button::TearDown();
    }

    [[nodiscard]] unsigned below(unsigned limit) { return static_cast<unsigned>(random() % limit); }
    [[nodiscard]] bool one_in(unsigned chance) { return below(chance) == 0; }

    /// How many nodes of the button lie under a point.
    [[nodiscard]] static int depth_at(std::size_t place) {
        return place < 2 ? static_cast<int>(place) + 1 : 0;
    }
    static constexpr D2D_POINT_2F places[] = {inside, on_label, outside, {85, 75}};

    void any_movement() {
        const std::size_t place = below(4);
        if (one_in(12)) {
            mouse(input::mouse::event_type::leave, 0, 0);
            go_to(0);
        } else {
            move_to(places[place]);
            go_to(depth_at(place));
        }
    }
    void go_to(int depth) {
        expected.hover(depth - hover_depth);
        hover_depth = depth;
    }
    void any_press() {
        const std::size_t place = below(4);
        constexpr std::optional<mouse_button> pressed[] = {
            mouse_button::left, mouse_button::left, mouse_button::left, mouse_button::right, {}};
        const auto which = pressed[below(5)];
        bool dragged = false;
        if (depth_at(place) > 0) {
            dragged = expected.press(which == mouse_button::left);
            // Passed on, it comes by once more on its way back from the label.
            if (!dragged && depth_at(place) > 1) static_cast<void>(expected.press(false));
        }
        press_at(places[place], which);
        if (dragged) expected.release();
    }
    void while_dragged(const moved_function& moved) {
        for (unsigned left = below(6); left > 0; --left) {
            compare();
            if (one_in(2)) {
                const std::size_t place = below(4);
                // The corner of the label is in the frame too.
                expected.drag(depth_at(place) > 0);
                EXPECT_FALSE(moved(places[place]));
            } else if (nested < 3) {
                ++nested;
                do_something();
                --nested;
            }
        }
    }
    void change_handler() {
        const bool has = one_in(2);
        expected.set_handler(has);
        button->set_on_click(has ? click_log() : nullptr);
    }
    void change_focus() {
        switch (below(5)) {
            case 0:
                expected.window_focus(true);
                return edge->on_focus_gained();
            case 1:
                expected.window_focus(false);
                return edge->on_focus_lost();
            case 2:
                expected.move_focus(focus::elsewhere);
                return elsewhere->set_focus();
            case 3:
                expected.move_focus(focus::button);
                return node()->set_focus();
            default:
                if (expected.focused == focus::button) expected.release_focus();
                return node()->release_focus();
        }
    }
    void do_something() {
        switch (below(10)) {
            case 0:
            case 1:
            case 2:
                return any_movement();
            case 3:
            case 4:
                return any_press();
            case 5: {
                const bool enabled = !one_in(3);
                expected.set_enabled(enabled);
                return button->set_enabled(enabled);
            }
            case 6: {
                const bool checked = one_in(2);
                expected.set_checked(checked);
                return button->set_checked(checked);
            }
            case 7:
                return change_handler();
            case 8:
                expected.draw();
                return button->arrange(rect);
            default:
                return change_focus();
        }
    }
    void compare() {
        lines seen;
        for (const auto& line : calls()) {
            if (line.starts_with("draw ")) seen.push_back(line.substr(line.find(": ") + 2));
            if (line.starts_with("click ")) seen.push_back(line);
            if (line.starts_with("drag_loop")) seen.emplace_back("drag");
        }
        ASSERT_EQ(std::exchange(expected.said, {}), seen);
        ASSERT_EQ(expected.checked, button->is_checked());
        ASSERT_EQ(expected.window_has_focus && expected.focused == focus::button, node()->has_focus(false));
    }

    const unsigned seed = test_support::random_seed();
    std::mt19937 random{seed};
    button_model expected{GetParam().latches};
    com::ptr<scene::INode> elsewhere;
    int hover_depth = 0;
    int nested = 0;
};
INSTANTIATE_TEST_SUITE_P(of, random_button, testing::ValuesIn(fakes::button_kinds), fakes::name_of_kind);

TEST_P(random_button, use_is_as_in_the_model) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RecordProperty("seed", std::to_string(seed));
    for (int step = 0; step < 3000; ++step) {
        do_something();
        compare();
        ASSERT_FALSE(HasFatalFailure()) << "step " << step;
    }
    move_to(outside);
    go_to(0);
    compare();
    EXPECT_EQ(0, expected.hovering);
}

}  // namespace
}  // namespace d2d
