// The example that scrolls a drawing of GDI, as its user sees it.

#include "running_program.h"
#include "settled_picture.h"
#include "support/golden.h"
#include "support/input.h"
#include "support/message_pump.h"

#include <gtest/gtest.h>

namespace {

using client_test::settled_picture;
using test_support::picture;

// Text may be smoothed a little differently from one version of the fonts to the next.
constexpr test_support::tolerance fonts{.channel = 24, .pixels = 3000};

class scroll_window_example : public testing::Test {
protected:
    void SetUp() override {
        SetForegroundWindow(window);
        EXPECT_TRUE(test_support::pump_until([&] { return GetForegroundWindow() == window; }));
        shown = settled_picture(window);
    }

    // What the window shows once `action` has changed it. It must look as if it had been painted whole: what
    // was moved and what was painted anew fit.
    template <class Action>
    void expect_change(std::string_view what, Action&& action) {
        const picture before = shown;
        action();
        const auto changed = [&] { return test_support::grab_client_area(window) != before; };
        ASSERT_TRUE(test_support::pump_until(changed)) << what << " changes nothing";
        shown = settled_picture(window);
        InvalidateRect(window, nullptr, TRUE);
        UpdateWindow(window);
        const auto left_over = test_support::compare(settled_picture(window), shown);
        ASSERT_TRUE(left_over.same_size);
        if (left_over.pixels != 0) {
            const auto file = test_support::failure_file("scroll_window/" + std::string(what), "left_over");
            test_support::save_png(left_over.image, file);
        }
        EXPECT_EQ(0u, left_over.pixels) << what << " leaves something behind";
    }

    void expect_shown(std::string_view golden) const {
        EXPECT_TRUE(test_support::matches_golden(shown, "scroll_window/" + std::string(golden), fonts));
    }

    client_test::running_program program{L"scroll_window.exe", L"Tide table"};
    HWND window = program.window();
    picture shown;
};

TEST_F(scroll_window_example, scrolls_by_wheel_keys_and_bars_and_comes_back) {
    const picture start = shown;
    expect_shown("start");
    expect_change("wheel", [&] {
        test_support::move_mouse(window, {400, 300});
        test_support::turn_wheel(-2);
    });
    expect_shown("wheel");
    expect_change("page_down", [] { test_support::strike_key(VK_NEXT); });
    expect_change("end", [] { test_support::strike_key(VK_END); });
    expect_shown("end");
    expect_change("line_right", [&] { SendMessageW(window, WM_HSCROLL, SB_LINERIGHT, 0); });
    expect_change("right_end", [&] { SendMessageW(window, WM_HSCROLL, SB_RIGHT, 0); });
    expect_shown("right_end");
    expect_change("page_up", [&] { SendMessageW(window, WM_VSCROLL, SB_PAGEUP, 0); });
    expect_change("home", [] { test_support::strike_key(VK_HOME); });
    SendMessageW(window, WM_HSCROLL, SB_LEFT, 0);
    EXPECT_EQ(0u, test_support::compare(start, settled_picture(window)).pixels);
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
    SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
    shown = settled_picture(window);
    expect_change("larger", [&] { size(1040, 700); });
    expect_shown("larger");
    expect_change("smaller", [&] { size(620, 380); });
    expect_shown("smaller");
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, program.exit_code());
}

}  // namespace
