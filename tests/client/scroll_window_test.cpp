// The example that scrolls a drawing of GDI, as its user sees it.

#include "onlooker.h"
#include "running_program.h"
#include "support/input.h"

#include <gtest/gtest.h>

namespace {

using test_support::picture;

// Text may be smoothed a little differently from one version of the fonts to the next.
constexpr test_support::tolerance fonts{.channel = 24, .pixels = 3000};

class scroll_window_example : public testing::Test {
protected:
    void SetUp() override {
        SetForegroundWindow(window);
        EXPECT_TRUE(test_support::pump_until([&] { return GetForegroundWindow() == window; }));
        expect_shown("start");
    }

    void expect_shown(std::string_view golden) {
        EXPECT_TRUE(eye.shows_golden("scroll_window/" + std::string(golden), fonts));
    }

    // What the window shows must look as if it had been painted whole: what was moved and what was painted
    // anew fit.
    void expect_seamless() {
        const picture moved = eye.shown();
        InvalidateRect(window, nullptr, TRUE);
        const auto is_painted = [&] { return !GetUpdateRect(window, nullptr, FALSE); };
        EXPECT_TRUE(test_support::pump_until(is_painted));
        test_support::pump_for(std::chrono::milliseconds(200));  // until the screen has it
        EXPECT_TRUE(eye.shows_again(moved)) << "something is left behind";
    }

    template <class Action>
    void expect_change(std::string_view golden, Action&& action) {
        SCOPED_TRACE(golden);
        action();
        expect_shown(golden);
        expect_seamless();
    }

    client_test::running_program program{L"scroll_window.exe", L"Tide table"};
    HWND window = program.window();
    client_test::onlooker eye{window};
};

TEST_F(scroll_window_example, scrolls_by_wheel_keys_and_bars_and_comes_back) {
    const picture start = eye.shown();
    expect_change("wheel", [&] {
        test_support::move_mouse(window, {400, 300});
        test_support::turn_wheel(-2);
    });
    expect_change("page_down", [] { test_support::strike_key(VK_NEXT); });
    expect_change("end", [] { test_support::strike_key(VK_END); });
    expect_change("line_right", [&] { SendMessageW(window, WM_HSCROLL, SB_LINERIGHT, 0); });
    expect_change("right_end", [&] { SendMessageW(window, WM_HSCROLL, SB_RIGHT, 0); });
    expect_change("page_up", [&] { SendMessageW(window, WM_VSCROLL, SB_PAGEUP, 0); });
    expect_change("home", [] { test_support::strike_key(VK_HOME); });
    SendMessageW(window, WM_HSCROLL, SB_LEFT, 0);
    EXPECT_TRUE(eye.shows_again(start));
}

TEST_F(scroll_window_example, follows_the_thumbs_of_its_bars) {
    RECT client{};
    GetClientRect(window, &client);
    // A point of the thumb at the start of each bar, below and beside the client area.
    const POINT down{client.right + 8, 60};
    const POINT across{60, client.bottom + 8};
    expect_change("thumb_down", [&] { test_support::drag(window, down, {down.x, down.y + 60}); });
    expect_change("thumb_across", [&] { test_support::drag(window, across, {across.x + 90, across.y}); });
}

TEST_F(scroll_window_example, keeps_its_headers_as_its_size_changes_and_ends_when_closed) {
    const auto size = [&](int width, int height) { program.set_position(0, 0, width, height, SWP_NOMOVE); };
    expect_change("end", [&] { SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0); });
    expect_change("larger", [&] { size(1040, 700); });
    expect_change("smaller", [&] { size(620, 380); });
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, program.exit_code());
}

}  // namespace
