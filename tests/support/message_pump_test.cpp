#include "support/message_pump.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace test_support {
namespace {

using clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

TEST(message_pump, ends_as_soon_as_the_condition_holds) {
    const auto start = clock::now();
    EXPECT_TRUE(pump_until([&] { return clock::now() - start > milliseconds(60); }));
    EXPECT_GE(clock::now() - start, milliseconds(60));
    EXPECT_LT(clock::now() - start, milliseconds(2000));
}

TEST(message_pump, dispatches_what_comes_meanwhile) {
    static int ticks = 0;
    const auto timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { ++ticks; });
    EXPECT_TRUE(pump_until([] { return ticks == 3; }));
    KillTimer(nullptr, timer);
}

TEST(message_pump, gives_up_at_its_limit) {
    const auto start = clock::now();
    EXPECT_FALSE(pump_until([] { return false; }, milliseconds(80)));
    EXPECT_GE(clock::now() - start, milliseconds(80));
}

TEST(message_pump, is_not_idle_ahead_of_a_look_at_what_has_come) {
    PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    pump_until_idle(milliseconds(0));
    MSG message{};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_APP, WM_APP, PM_REMOVE));
}

TEST(message_pump, gives_up_being_idle_at_its_limit_when_messages_do_not_end) {
    const auto timer = SetTimer(nullptr, 0, 10, nullptr);
    const auto start = clock::now();
    pump_until_idle(milliseconds(200), milliseconds(400));
    KillTimer(nullptr, timer);
    EXPECT_GE(clock::now() - start, milliseconds(400));
}

TEST(message_pump, puts_a_quit_message_back) {
    PostQuitMessage(7);
    pump_for(milliseconds(10));
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(static_cast<UINT>(WM_QUIT), message.message);
    EXPECT_EQ(7u, message.wParam);
}

}  // namespace
}  // namespace test_support
