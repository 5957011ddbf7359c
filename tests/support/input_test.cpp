#include "support/input.h"
#include "support/message_pump.h"
#include "support/recording_window.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace test_support {
namespace {

class real_input : public testing::Test {
protected:
    void SetUp() override { bring_to_front(window.handle()); }

    [[nodiscard]] POINT last_point(UINT id) const {
        const auto position = window.last(id).lParam;
        return {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    }

    void expect_point(LONG x, LONG y, UINT id) const {
        const POINT point = last_point(id);
        EXPECT_EQ(x, point.x);
        EXPECT_EQ(y, point.y);
    }

    recording_window window;
};

TEST_F(real_input, moves_the_mouse_to_exactly_the_pixel) {
    for (const LONG x : {0, 1, 7, 100, 151, 299}) {
        move_mouse(window.handle(), {x, 199 - x / 2});
        expect_point(x, 199 - x / 2, WM_MOUSEMOVE);
    }
}

TEST_F(real_input, clicks_with_each_button) {
    click(window.handle(), {20, 30});
    expect_point(20, 30, WM_LBUTTONDOWN);
    EXPECT_EQ(1, window.count(WM_LBUTTONUP));
    click(window.handle(), {40, 31}, mouse_button::right);
    expect_point(40, 31, WM_RBUTTONUP);
    click(window.handle(), {60, 32}, mouse_button::middle);
    expect_point(60, 32, WM_MBUTTONUP);
}

TEST_F(real_input, clicks_while_keys_are_held) {
    click(window.handle(), {20, 30}, mouse_button::left, {VK_SHIFT, VK_CONTROL});
    EXPECT_EQ(WPARAM{MK_LBUTTON | MK_SHIFT | MK_CONTROL}, window.last(WM_LBUTTONDOWN).wParam);
    EXPECT_EQ(WPARAM{MK_SHIFT | MK_CONTROL}, window.last(WM_LBUTTONUP).wParam);
    EXPECT_LE(0, GetKeyState(VK_SHIFT)) << "released";
    EXPECT_LE(0, GetKeyState(VK_CONTROL)) << "released";
}

TEST_F(real_input, double_clicks) {
    double_click(window.handle(), {90, 30});
    EXPECT_EQ(1, window.count(WM_LBUTTONDOWN));
    EXPECT_EQ(1, window.count(WM_LBUTTONDBLCLK));
    EXPECT_EQ(2, window.count(WM_LBUTTONUP));
}

TEST_F(real_input, clicks_what_runs_a_modal_loop_while_it_is_pressed) {
    window.modal_while_pressed = true;
    click(window.handle(), {20, 30});
    EXPECT_EQ(1, window.count(WM_LBUTTONUP));
}

TEST_F(real_input, drags_through_a_modal_loop_with_every_step_seen) {
    window.modal_while_pressed = true;
    move_mouse(window.handle(), {10, 10});
    const int moves = window.count(WM_MOUSEMOVE);
    drag(window.handle(), {10, 10}, {90, 50}, 4);
    EXPECT_LE(moves + 4, window.count(WM_MOUSEMOVE));
    expect_point(90, 50, WM_LBUTTONUP);
}

TEST_F(real_input, turns_the_wheel) {
    move_mouse(window.handle(), {150, 100});
    turn_wheel(-2);
    EXPECT_EQ(-2 * WHEEL_DELTA, GET_WHEEL_DELTA_WPARAM(window.last(WM_MOUSEWHEEL).wParam));
    turn_horizontal_wheel(1);
    EXPECT_EQ(WHEEL_DELTA, GET_WHEEL_DELTA_WPARAM(window.last(WM_MOUSEHWHEEL).wParam));
}

TEST_F(real_input, strikes_keys_while_others_are_held) {
    strike_key(VK_LEFT, {VK_SHIFT, VK_CONTROL});
    std::vector<WPARAM> keys;
    for (const MSG& message : window.messages())
        if (message.message == WM_KEYDOWN) keys.push_back(message.wParam);
    EXPECT_EQ((std::vector<WPARAM>{VK_SHIFT, VK_CONTROL, VK_LEFT}), keys);
    EXPECT_EQ(3, window.count(WM_KEYUP));
    EXPECT_GE(GetKeyState(VK_SHIFT), 0) << "no key stays down";
}

TEST_F(real_input, types_any_character) {
    const std::wstring text = L"aZ \u00E4\u03A9\u4E2D";
    type_text(text);
    std::wstring typed;
    for (const MSG& message : window.messages())
        if (message.message == WM_CHAR) typed += static_cast<wchar_t>(message.wParam);
    EXPECT_EQ(text, typed);
}

TEST_F(real_input, passes_on_what_its_other_thread_throws) {
    EXPECT_THROW(meanwhile([] { throw std::runtime_error("in the other thread"); }), std::runtime_error);
}

}  // namespace
}  // namespace test_support
