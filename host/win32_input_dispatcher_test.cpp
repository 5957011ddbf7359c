#include "d2d/win32_input_dispatcher.h"

#include "host/mouse_message.h"
#include "host/testing/fake_lower_edge.h"
#include "host/testing/hidden_window.h"
#include "support/message_pump.h"

#include <array>
#include <stdexcept>

#include <gmock/gmock.h>

namespace {

using namespace d2d;
using testing::ElementsAre;
using testing::IsEmpty;

class input_dispatcher : public testing::Test {
protected:
    void SetUp() override {
        input.hwnd = window.get();
        input.lower_edge = &edge;
    }
    void TearDown() override {
        input.lower_edge.reset();
        EXPECT_EQ(0u, edge.references());
    }

    std::optional<long> send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
        MSG sent{};
        sent.hwnd = window.get();
        sent.message = message;
        sent.wParam = wparam;
        sent.lParam = lparam;
        return input.on_window_message(sent);
    }
    /// The mouse is inside at (5, 6), and nothing is written down yet.
    void enter() {
        send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 6));
        edge.calls.clear();
    }
    [[nodiscard]] bool hover_timer_runs() const { return KillTimer(window.get(), 2) != FALSE; }

    fakes::hidden_window window;
    fakes::fake_lower_edge edge;
    win32_input_dispatcher input;
};

TEST_F(input_dispatcher, without_a_view_leaves_every_message_alone) {
    input.lower_edge.reset();
    static int deferred = 0;
    void (*const call)(void*) = [](void*) { ++deferred; };
    for (UINT message = 0; message <= 0x400; ++message) {
        EXPECT_EQ(std::nullopt, send(message, 2, reinterpret_cast<LPARAM>(call))) << message;
    }
    EXPECT_EQ(0, deferred);
    MSG posted{};
    EXPECT_FALSE(PeekMessageW(&posted, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(input_dispatcher, tells_of_focus_and_leaves_the_message_alone) {
    EXPECT_EQ(std::nullopt, send(WM_SETFOCUS));
    EXPECT_EQ(std::nullopt, send(WM_KILLFOCUS));
    EXPECT_THAT(edge.calls, ElementsAre("focus_gained", "focus_lost"));
}

TEST_F(input_dispatcher, closing_posts_the_end_of_the_message_loop) {
    EXPECT_EQ(0, send(WM_CLOSE));
    MSG posted{};
    ASSERT_TRUE(PeekMessageW(&posted, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(0u, posted.wParam);
    EXPECT_THAT(edge.calls, IsEmpty());
}

TEST_F(input_dispatcher, runs_a_deferred_call) {
    int called = 0;
    void (*const call)(void*) = [](void* data) { ++*static_cast<int*>(data); };
    EXPECT_EQ(0, send(WM_USER, reinterpret_cast<WPARAM>(&called), reinterpret_cast<LPARAM>(call)));
    EXPECT_EQ(1, called);
}

TEST_F(input_dispatcher, a_key_is_handled_when_the_view_says_so) {
    EXPECT_EQ(std::nullopt, send(WM_KEYDOWN, 'A', 0x001E0001));
    edge.takes_keys = true;
    EXPECT_EQ(0, send(WM_KEYDOWN, 'A', 0x401E0001));
    EXPECT_EQ(0, send(WM_KEYUP, 'A', static_cast<LPARAM>(0xC01E0001u)));
    EXPECT_THAT(edge.calls,
                ElementsAre("key 65 down 1 repeat 0 modifiers 0", "key 65 down 1 repeat 1 modifiers 0",
                            "key 65 down 0 repeat 1 modifiers 0"));
}

TEST_F(input_dispatcher, a_key_carries_the_modifiers) {
    struct down {
        BYTE key;
        const char* modifiers;
    };
    for (const down& held : {down{VK_MENU, "1"}, down{VK_SHIFT, "2"}, down{VK_CONTROL, "4"}}) {
        std::array<BYTE, 256> keys{};
        keys[held.key] = 0x80;
        SetKeyboardState(keys.data());
        send(WM_KEYDOWN, VK_LEFT, 1);
        EXPECT_THAT(edge.take_calls(),
                    ElementsAre(std::string("key 37 down 1 repeat 0 modifiers ") + held.modifiers));
        keys[held.key] = 0x01;  // toggled, not down
        SetKeyboardState(keys.data());
        send(WM_KEYDOWN, VK_LEFT, 1);
        EXPECT_THAT(edge.take_calls(), ElementsAre("key 37 down 1 repeat 0 modifiers 0"));
    }
    std::array<BYTE, 256> all{};
    all[VK_MENU] = all[VK_SHIFT] = all[VK_CONTROL] = 0x80;
    SetKeyboardState(all.data());
    send(WM_KEYUP, VK_LEFT, static_cast<LPARAM>(0xC0000001u));
    EXPECT_THAT(edge.take_calls(), ElementsAre("key 37 down 0 repeat 1 modifiers 7"));
    std::array<BYTE, 256> none{};
    SetKeyboardState(none.data());
}

TEST_F(input_dispatcher, system_keys_are_left_alone) {
    constexpr UINT messages[] = {WM_SYSKEYDOWN, WM_SYSKEYUP, WM_SYSCHAR, WM_DEADCHAR};
    for (const UINT message : messages) {
        EXPECT_EQ(std::nullopt, send(message, 'A', 1)) << message;
    }
    EXPECT_THAT(edge.calls, IsEmpty());
}

TEST_F(input_dispatcher, hands_on_characters) {
    EXPECT_EQ(0, send(WM_CHAR, 0x20AC));
    EXPECT_THAT(edge.calls, ElementsAre("char 8364"));
}

struct message_case {
    UINT message;
    const char* event;
};

class mouse_messages : public input_dispatcher, public testing::WithParamInterface<message_case> {};

TEST_P(mouse_messages, become_events) {
    enter();
    EXPECT_EQ(std::nullopt, send(GetParam().message, 0x1234FF5A, MAKELPARAM(5, 6)));
    ASSERT_EQ(1u, edge.calls.size());
    EXPECT_EQ(0u, edge.calls[0].find(std::string("mouse ") + GetParam().event + " flags 90 at "))
        << edge.calls[0];
}

INSTANTIATE_TEST_SUITE_P(
    all, mouse_messages,
    testing::Values(message_case{WM_MOUSEMOVE, "1"}, message_case{WM_LBUTTONDOWN, "3 button 0"},
                    message_case{WM_LBUTTONUP, "4 button 0"}, message_case{WM_LBUTTONDBLCLK, "5 button 0"},
                    message_case{WM_RBUTTONDOWN, "3 button 1"}, message_case{WM_RBUTTONUP, "4 button 1"},
                    message_case{WM_RBUTTONDBLCLK, "5 button 1"}, message_case{WM_MBUTTONDOWN, "3 button 4"},
                    message_case{WM_MBUTTONUP, "4 button 4"}, message_case{WM_MBUTTONDBLCLK, "5 button 4"},
                    message_case{WM_MOUSEWHEEL, "6"}, message_case{WM_XBUTTONDOWN, "3 button 5"},
                    message_case{WM_XBUTTONUP, "4 button 5"}, message_case{WM_XBUTTONDBLCLK, "5 button 5"},
                    message_case{WM_MOUSEHWHEEL, "7"}));

TEST_F(input_dispatcher, other_messages_are_no_mouse_messages) {
    EXPECT_FALSE(is_mouse_message(WM_MOUSEMOVE - 1));
    EXPECT_FALSE(is_mouse_message(WM_MOUSEHWHEEL + 1));
    MSG other{};
    other.message = WM_KEYDOWN;
    try {
        static_cast<void>(mouse_event_of(other, window.get(), {}));
        FAIL() << "a key is no mouse event";
    } catch (const std::logic_error& e) {
        EXPECT_STREQ("unexpected message type", e.what());
    }
}

TEST_F(input_dispatcher, a_pixel_is_addressed_by_its_centre_from_the_origin) {
    enter();
    input.origin = {10, 20};
    send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 20));
    send(WM_LBUTTONUP, 0, MAKELPARAM(-3, -4));
    EXPECT_THAT(edge.calls, ElementsAre("mouse 3 button 0 flags 1 at 0.5 0.5 delta 0",
                                        "mouse 4 button 0 flags 0 at -12.5 -23.5 delta 0"));
}

TEST_F(input_dispatcher, a_wheel_reports_client_coordinates_and_a_signed_delta) {
    enter();
    POINT corner{};
    ClientToScreen(window.get(), &corner);
    const LPARAM on_screen = MAKELPARAM(corner.x + 7, corner.y + 8);
    send(WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, static_cast<WORD>(-120)), on_screen);
    send(WM_MOUSEHWHEEL, MAKEWPARAM(0, 240), on_screen);
    EXPECT_THAT(edge.calls,
                ElementsAre("mouse 6 flags 4 at 7.5 8.5 delta -120", "mouse 7 flags 0 at 7.5 8.5 delta 240"));
}

TEST_F(input_dispatcher, the_first_move_is_the_entering) {
    send(WM_MOUSEMOVE, MK_CONTROL, MAKELPARAM(1, 2));
    send(WM_MOUSEMOVE, 0, MAKELPARAM(1, 2));
    EXPECT_THAT(edge.calls,
                ElementsAre("mouse 0 flags 8 at 1.5 2.5 delta 0", "mouse 1 flags 0 at 1.5 2.5 delta 0"));
    EXPECT_TRUE(input.tracking);
}

TEST_F(input_dispatcher, another_first_message_is_reported_behind_the_entering) {
    send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 2));
    EXPECT_THAT(edge.calls, ElementsAre("mouse 0 flags 1 at 1.5 2.5 delta 0",
                                        "mouse 3 button 0 flags 1 at 1.5 2.5 delta 0"));
}

TEST_F(input_dispatcher, a_first_wheel_message_gives_its_delta_to_the_entering) {
    POINT corner{};
    ClientToScreen(window.get(), &corner);
    send(WM_MOUSEWHEEL, MAKEWPARAM(0, 120), MAKELPARAM(corner.x, corner.y));
    EXPECT_THAT(edge.calls,
                ElementsAre("mouse 0 flags 0 at 0.5 0.5 delta 120", "mouse 6 flags 0 at 0.5 0.5 delta 120"));
}

TEST_F(input_dispatcher, resting_is_reported_after_400_milliseconds) {
    send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 6));
    EXPECT_TRUE(hover_timer_runs());
    input.last_flags = MK_SHIFT;
    edge.calls.clear();
    EXPECT_EQ(std::nullopt, send(WM_TIMER, 2));
    EXPECT_THAT(edge.calls, ElementsAre("mouse 8 flags 4 at 5.5 6.5 delta 0"));
    EXPECT_TRUE(input.hovering);
    EXPECT_FALSE(hover_timer_runs());
}

TEST_F(input_dispatcher, the_hover_timer_comes_when_it_is_due) {
    SetTimer(window.get(), 77, 1000, nullptr);  // the test's own limit
    const ULONGLONG start = GetTickCount64();
    send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 6));
    MSG timer{};
    ASSERT_GT(GetMessageW(&timer, window.get(), WM_TIMER, WM_TIMER), 0);
    KillTimer(window.get(), 77);
    EXPECT_EQ(2u, timer.wParam);
    EXPECT_GE(GetTickCount64() - start, 380u);
}

TEST_F(input_dispatcher, timers_of_others_pass_through) {
    enter();
    EXPECT_EQ(std::nullopt, send(WM_TIMER, 1));
    EXPECT_EQ(std::nullopt, send(WM_TIMER, 3));
    EXPECT_THAT(edge.calls, IsEmpty());
    EXPECT_FALSE(input.hovering);
}

TEST_F(input_dispatcher, a_move_to_another_place_ends_hovering_and_waits_anew) {
    enter();
    send(WM_TIMER, 2);
    edge.calls.clear();
    send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 6));
    EXPECT_THAT(edge.take_calls(), ElementsAre("mouse 1 flags 0 at 5.5 6.5 delta 0"));
    EXPECT_TRUE(input.hovering);
    EXPECT_FALSE(hover_timer_runs());
    send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 7));
    EXPECT_THAT(edge.take_calls(),
                ElementsAre("mouse 9 flags 1 at 5.5 7.5 delta 0", "mouse 1 flags 1 at 5.5 7.5 delta 0"));
    EXPECT_FALSE(input.hovering);
    EXPECT_TRUE(hover_timer_runs());
}

TEST_F(input_dispatcher, a_press_elsewhere_does_not_end_hovering) {
    enter();
    send(WM_TIMER, 2);
    edge.calls.clear();
    send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 60));
    EXPECT_THAT(edge.take_calls(), ElementsAre("mouse 3 button 0 flags 1 at 50.5 60.5 delta 0"));
    EXPECT_TRUE(input.hovering);
    send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(50, 60));  // the mouse is known to be there
    EXPECT_THAT(edge.take_calls(), ElementsAre("mouse 1 flags 1 at 50.5 60.5 delta 0"));
    EXPECT_TRUE(input.hovering);
    send(WM_MOUSELEAVE);
    EXPECT_THAT(edge.calls,
                ElementsAre("mouse 9 flags 1 at 50.5 60.5 delta 0", "mouse 2 flags 1 at 50.5 60.5 delta 0"));
}

TEST_F(input_dispatcher, leaving_stops_the_timer_and_the_next_message_enters_again) {
    enter();
    EXPECT_EQ(std::nullopt, send(WM_MOUSELEAVE));
    EXPECT_THAT(edge.take_calls(), ElementsAre("mouse 2 flags 0 at 5.5 6.5 delta 0"));
    EXPECT_FALSE(hover_timer_runs());
    EXPECT_FALSE(input.tracking);
    send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 6));
    EXPECT_THAT(edge.take_calls(), ElementsAre("mouse 0 flags 0 at 5.5 6.5 delta 0"));
    EXPECT_FALSE(hover_timer_runs());  // it entered where it was
}

TEST_F(input_dispatcher, leaving_ends_hovering_first) {
    enter();
    send(WM_TIMER, 2);
    edge.calls.clear();
    send(WM_MOUSELEAVE);
    EXPECT_THAT(edge.calls,
                ElementsAre("mouse 9 flags 0 at 5.5 6.5 delta 0", "mouse 2 flags 0 at 5.5 6.5 delta 0"));
    EXPECT_FALSE(input.hovering);
}

TEST_F(input_dispatcher, the_cursor_is_the_views_over_the_client_area_alone) {
    const HCURSOR hand = LoadCursorW(nullptr, IDC_HAND);
    edge.cursor = hand;
    EXPECT_EQ(std::nullopt, send(WM_SETCURSOR, 0, MAKELPARAM(HTCAPTION, WM_MOUSEMOVE)));
    EXPECT_THAT(edge.calls, IsEmpty());
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(1, send(WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
    EXPECT_EQ(hand, GetCursor());
    POINT mouse{};
    GetCursorPos(&mouse);
    ScreenToClient(window.get(), &mouse);
    EXPECT_THAT(
        edge.calls,
        ElementsAre(scene::fakes::call_text(
            "cursor", D2D_POINT_2F{static_cast<float>(mouse.x) + 0.5f, static_cast<float>(mouse.y) + 0.5f})));
}

TEST_F(input_dispatcher, the_cursor_is_the_default_one_where_the_view_has_no_opinion) {
    EXPECT_EQ(LoadCursorW(nullptr, IDC_ARROW), input.default_cursor);
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(1, send(WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
    EXPECT_EQ(LoadCursorW(nullptr, IDC_ARROW), GetCursor());
    input.default_cursor = nullptr;
    EXPECT_EQ(std::nullopt, send(WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
}

TEST_F(input_dispatcher, a_handler_may_take_the_view_out) {
    edge.on_mouse = [&](const input::mouse::event&) { input.lower_edge.reset(); };
    send(WM_LBUTTONDOWN, 0, MAKELPARAM(1, 2));
    EXPECT_EQ(2u, edge.calls.size());  // the message at hand is reported whole
    send(WM_LBUTTONUP, 0, MAKELPARAM(1, 2));
    EXPECT_EQ(2u, edge.calls.size());
}

TEST_F(input_dispatcher, the_state_of_the_mouse_outlives_the_view) {
    enter();
    fakes::fake_lower_edge next;
    static_cast<void>(input.set_lower_edge(&next));
    send(WM_MOUSEMOVE, 0, MAKELPARAM(9, 9));
    EXPECT_THAT(next.calls, ElementsAre("mouse 1 flags 0 at 9.5 9.5 delta 0"));
    static_cast<void>(input.set_lower_edge(nullptr));
}

}  // namespace
