// The example to play with, as its user sees it: real input, and what shows of it.

#include "onlooker.h"
#include "running_program.h"
#include "support/golden.h"
#include "support/input.h"
#include "support/message_pump.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

using client_test::onlooker;
using client_test::running_program;
using namespace std::chrono_literals;
using test_support::click;
using test_support::grab_client_area;
using test_support::move_mouse;
using test_support::picture;
using test_support::strike_key;

// Text may be smoothed a little differently from one version of the fonts to the next.
constexpr test_support::tolerance fonts{.channel = 24, .pixels = 300};

// Where the toys are at the start, and a place without one.
constexpr POINT buoy{464, 354};
constexpr POINT wheel{354, 208};
constexpr POINT anchor{234, 354};
constexpr POINT boat{584, 238};
constexpr POINT water{244, 208};

class playground_example : public testing::Test {
protected:
    void SetUp() override {
        SetForegroundWindow(window);
        ASSERT_TRUE(test_support::pump_until([&] { return GetForegroundWindow() == window; }));
        move_mouse(window, water);
        expect_shown("start");
    }

    /// Does something that changes what shows, and compares it.
    template <class Action>
    void change(std::string_view golden, Action&& action) {
        SCOPED_TRACE(golden);
        const picture before = eye.shown();
        action();
        expect_shown(golden);
        EXPECT_TRUE(before != eye.shown()) << "nothing changes";
    }

    /// Moves the pressed mouse to a place until `golden` shows. A program that is busy may take all the
    /// movements for one, and the movement that begins a drag is not a part of it: then once more.
    void drag_on(POINT to, std::string_view golden) {
        SCOPED_TRACE(golden);
        const client_test::awaited_golden expected("playground/" + std::string(golden), fonts);
        for (int attempts = 50; attempts > 0; --attempts) {
            move_mouse(window, {to.x + 1, to.y});
            move_mouse(window, to);
            test_support::pump_for(50ms);
            eye.look();
            if (expected.likeness_of(eye.shown()) != client_test::likeness::none) break;
        }
        expect_shown(golden);
    }

    /// Takes a toy to another place. Mouse messages outside the window are its own once it has the capture.
    void drag(POINT from, POINT to, std::string_view golden) {
        move_mouse(window, from);
        test_support::press_mouse();
        EXPECT_TRUE(test_support::pump_until([&] { return program.has_capture(); }));
        drag_on(to, golden);
        test_support::release_mouse();
        EXPECT_TRUE(test_support::pump_until([&] { return !program.has_capture(); }));
    }

    void expect_shown(std::string_view golden) {
        EXPECT_TRUE(eye.shows_golden("playground/" + std::string(golden), fonts));
    }

    void expect_back(const picture& earlier) { EXPECT_TRUE(eye.shows_again(earlier)); }

    running_program program{L"playground.exe", L"Playground", L"--still"};
    HWND window = program.window();
    onlooker eye{window};
};

TEST_F(playground_example, lights_up_what_is_under_the_mouse) {
    const picture start = eye.shown();
    change("hovered", [&] { move_mouse(window, wheel); });
    change("hovered_next", [&] { move_mouse(window, anchor); });
    move_mouse(window, water);
    expect_back(start);
}

TEST_F(playground_example, moves_a_toy_by_dragging_it_and_keeps_it_in_the_water) {
    drag(wheel, {wheel.x + 60, wheel.y + 40}, "in_a_short_drag");
    expect_shown("dragged");
    drag(anchor, {anchor.x - 350, anchor.y + 250}, "in_a_drag_out_of_the_window");
    expect_shown("dragged_away");
}

TEST_F(playground_example, gives_the_focus_by_click_and_tab_and_moves_the_focused_toy_by_arrow_keys) {
    change("clicked", [&] { click(window, buoy); });
    change("focused", [&] { move_mouse(window, water); });
    const picture ringed = eye.shown();
    change("moved_by_keys", [] {
        strike_key(VK_UP);
        strike_key(VK_UP);
        strike_key(VK_RIGHT);
        strike_key(VK_DOWN, {VK_SHIFT});
    });
    strike_key(VK_DOWN);
    strike_key(VK_DOWN);
    strike_key(VK_LEFT);
    strike_key(VK_UP, {VK_SHIFT});
    expect_back(ringed);
    change("tabbed", [] { strike_key(VK_TAB); });
    strike_key(VK_TAB, {VK_SHIFT});
    expect_back(ringed);
    change("unfocused", [&] { click(window, water); });
    change("last_focused", [] { strike_key(VK_TAB, {VK_SHIFT}); });
    change("first_focused", [] { strike_key(VK_TAB); });  // around the end
}

TEST_F(playground_example, puts_a_toy_back_when_escape_ends_the_drag) {
    click(window, wheel);
    change("wheel_focused", [&] { move_mouse(window, water); });
    const picture before = eye.shown();
    const POINT rim{wheel.x + 20, wheel.y};  // at another place, lest the press be a double click
    move_mouse(window, rim);
    test_support::press_mouse();
    drag_on({rim.x + 90, rim.y + 60}, "in_a_drag");
    change("drag_escaped", [] { strike_key(VK_ESCAPE); });
    move_mouse(window, {wheel.x + 140, wheel.y + 60});
    test_support::release_mouse();
    move_mouse(window, water);
    expect_back(before);
}

/// The window that floats above `owner`, or null.
HWND floating_above(HWND owner) {
    struct search {
        HWND owner;
        HWND found;
    } wanted{owner, nullptr};
    const auto look = [](HWND window, LPARAM parameter) -> BOOL {
        auto& sought = *reinterpret_cast<search*>(parameter);
        if (GetWindow(window, GW_OWNER) == sought.owner && IsWindowVisible(window)) sought.found = window;
        return !sought.found;
    };
    EnumWindows(look, reinterpret_cast<LPARAM>(&wanted));
    return wanted.found;
}

RECT place_of(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

TEST_F(playground_example, flies_a_kite_out_of_the_window_that_follows_its_boat_and_its_window) {
    HWND kite = nullptr;
    ASSERT_TRUE(test_support::pump_until([&] { return (kite = floating_above(window)) != nullptr; }));
    const auto expect_moved = [&](RECT from, int x, int y) {
        const auto there = [&] {
            const RECT now = place_of(kite);
            return now.left == from.left + x && now.top == from.top + y && now.right == from.right + x &&
                   now.bottom == from.bottom + y;
        };
        EXPECT_TRUE(test_support::pump_until(there)) << "not by " << x << ", " << y;
    };
    const RECT start = place_of(kite);
    const RECT frame = place_of(window);
    EXPECT_LT(start.top, frame.top);
    EXPECT_GT(start.right, frame.right);

    // The grip lies beneath the kite's string: the mouse goes through its window.
    const POINT grip{boat.x + 12, boat.y - 52};
    drag(grip, {grip.x - 70, grip.y + 10}, "in_a_drag_of_the_kite");
    expect_shown("kite_follows");
    expect_moved(start, -70, 10);

    const RECT before = place_of(kite);
    program.set_position(frame.left + 40, frame.top + 30, 0, 0, SWP_NOSIZE);
    expect_moved(before, 40, 30);

    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, program.exit_code());
    EXPECT_FALSE(IsWindow(kite));
}

struct activity {
    int changes;  ///< of what shows, seen in looks that are 20 ms apart
    std::chrono::microseconds processor_time;
};

/// What a program does, left alone for a time, or until it has changed often enough.
activity watched(const running_program& program, std::chrono::seconds time, int enough) {
    activity result{};
    const auto used = program.processor_time();
    picture last = grab_client_area(program.window());
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end && result.changes < enough) {
        test_support::pump_for(20ms);
        picture next = grab_client_area(program.window());
        result.changes += next == last ? 0 : 1;
        last = std::move(next);
    }
    result.processor_time = program.processor_time() - used;
    return result;
}

/// Waits until the program has been left without processor time for a moment.
bool comes_to_rest(const running_program& program) {
    return test_support::pump_until([&] {
        const auto used = program.processor_time();
        test_support::pump_for(200ms);
        return program.processor_time() == used;
    });
}

TEST(playground, at_rest_uses_no_processor_time_and_animated_gets_its_ticks) {
    activity still{};
    {
        const running_program program(L"playground.exe", L"Playground", L"--still");
        move_mouse(program.window(), water);
        EXPECT_TRUE(onlooker(program.window()).shows_golden("playground/start", fonts));
        ASSERT_TRUE(comes_to_rest(program));
        still = watched(program, 2s, 1);
    }
    EXPECT_EQ(0, still.changes);
    EXPECT_LE(still.processor_time, 20ms);

    const running_program program(L"playground.exe", L"Playground");
    const activity animated = watched(program, 60s, 20);
    EXPECT_EQ(20, animated.changes);
    EXPECT_GT(animated.processor_time, 20ms);
    std::cout << "at rest " << still.processor_time.count() / 1000 << " ms of processor time in 2 s, for "
              << animated.changes << " changes " << animated.processor_time.count() / 1000 << " ms\n";
}

}  // namespace
