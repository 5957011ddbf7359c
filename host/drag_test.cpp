// The modal loops of a host, fed with posted messages: they come in order, and the mouse stays where it is.

#include "host/testing/host_fixture.h"
#include "support/input.h"

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace {

using namespace d2d;
using input::mouse::button;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr D2D_MATRIX_3X2_F identity{{{1, 0, 0, 1, 0, 0}}};

class modal_drag : public fakes::host_fixture {
protected:
    void SetUp() override {
        host_fixture::SetUp();
        window.emplace(WS_POPUP | WS_VISIBLE);
        window_layer->attach_hwnd(window->get(), nullptr);
        host->set_lower_edge(&edge);
        test_support::move_mouse(window->get(), {50, 40});  // what the real one does stays in the room
        edge.calls.clear();
        room_x = GetSystemMetrics(SM_CXDRAG);
        room_y = GetSystemMetrics(SM_CYDRAG);
    }
    void TearDown() override {
        EXPECT_EQ(nullptr, GetCapture());
        MSG left{};
        EXPECT_FALSE(
            PeekMessageW(&left, window ? window->get() : nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE));
        host_fixture::TearDown();
    }

    void post(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
        ASSERT_TRUE(PostMessageW(window->get(), message, wparam, lparam));
    }
    void post_mouse(UINT message, int x, int y) { post(message, 0, MAKELPARAM(x, y)); }
    bool detect(button pressed = button::left) { return edge.site->drag_detect({50.5f, 40.5f}, pressed); }
    bool loop(button pressed = button::left, const D2D_MATRIX_3X2_F& transform = identity) {
        return edge.site->drag_loop({50.5f, 40.5f}, pressed, transform, [this](D2D_POINT_2F point) {
            moves.push_back(scene::fakes::call_text(point));
            return false;  // changes nothing
        });
    }
    int room_x = 0;
    int room_y = 0;
    std::vector<std::string> moves;
};

TEST_F(modal_drag, a_press_that_ends_in_its_room_is_no_drag) {
    post_mouse(WM_MOUSEMOVE, 50 + room_x, 40 + room_y);
    post_mouse(WM_MOUSEMOVE, 50 - room_x, 40 - room_y);
    post_mouse(WM_LBUTTONUP, 50, 40);
    EXPECT_FALSE(detect());
}

TEST_F(modal_drag, a_press_that_leaves_its_room_is_a_drag) {
    const POINT outside[] = {{51 + room_x, 40}, {49 - room_x, 40}, {50, 41 + room_y}, {50, 39 - room_y}};
    for (const POINT& point : outside) {
        post_mouse(WM_MOUSEMOVE, point.x, point.y);
        EXPECT_TRUE(detect());
    }
}

TEST_F(modal_drag, a_release_outside_the_room_ends_a_press_all_the_same) {
    post_mouse(WM_LBUTTONUP, 51 + room_x, 41 + room_y);
    EXPECT_FALSE(detect());
}

TEST_F(modal_drag, the_room_lies_around_the_origin_of_the_scene) {
    host->set_origin({10, 20});
    post_mouse(WM_MOUSEMOVE, 60, 60);
    post_mouse(WM_LBUTTONUP, 60, 60);
    EXPECT_FALSE(detect());
}

TEST_F(modal_drag, the_release_of_its_own_button_ends_a_press) {
    const std::pair<button, UINT> buttons[] = {{button::left, WM_LBUTTONUP},
                                               {button::right, WM_RBUTTONUP},
                                               {button::middle, WM_MBUTTONUP},
                                               {button::extended, WM_XBUTTONUP},
                                               {static_cast<button>(77), WM_LBUTTONUP}};
    for (const auto& [pressed, release] : buttons) {
        for (const auto& [other, other_release] : buttons) {
            if (other_release != release) post_mouse(other_release, 50, 40);
        }
        post_mouse(release, 50, 40);
        EXPECT_FALSE(detect(pressed));
    }
}

TEST_F(modal_drag, a_press_that_is_held_for_a_second_is_a_drag) {
    const ULONGLONG start = GetTickCount64();
    EXPECT_TRUE(detect());
    const ULONGLONG held = GetTickCount64() - start;
    EXPECT_GE(held, 950u);
    EXPECT_LE(held, 3000u);
}

TEST_F(modal_drag, escape_going_up_ends_a_press) {
    post(WM_KEYDOWN, VK_ESCAPE);
    post(WM_KEYUP, VK_RETURN);
    post(WM_KEYUP, VK_ESCAPE);
    post_mouse(WM_MOUSEMOVE, 100, 90);
    EXPECT_FALSE(detect());
    MSG next{};
    EXPECT_TRUE(PeekMessageW(&next, window->get(), WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE));
    EXPECT_THAT(edge.calls, testing::Not(testing::Contains(testing::StartsWith("key"))));
}

// The window is sent what is no input, and lets the mouse go when it is told to cancel its mode.
TEST_F(modal_drag, losing_the_capture_ends_a_press) {
    post(WM_CANCELMODE);
    post_mouse(WM_MOUSEMOVE, 100, 90);
    EXPECT_FALSE(detect());
    MSG next{};
    EXPECT_TRUE(PeekMessageW(&next, window->get(), WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE));
}

TEST_F(modal_drag, the_end_of_the_program_ends_a_press_and_is_gone) {
    PostQuitMessage(3);
    EXPECT_FALSE(detect());
    MSG next{};
    EXPECT_FALSE(PeekMessageW(&next, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(modal_drag, movements_are_reported_in_the_scene_until_the_release) {
    post_mouse(WM_MOUSEMOVE, 50, 40);  // where it was
    post_mouse(WM_MOUSEMOVE, 53, 40);
    post_mouse(WM_MOUSEMOVE, 53, 40);
    post_mouse(WM_MOUSEMOVE, -2, -7);
    post_mouse(WM_LBUTTONUP, 60, 61);
    EXPECT_TRUE(loop());
    EXPECT_THAT(moves, ElementsAre("53.5 40.5", "-1.5 -6.5", "60.5 61.5"));
}

TEST_F(modal_drag, movements_are_mapped_behind_the_origin) {
    host->set_origin({10, 20});
    post_mouse(WM_MOUSEMOVE, 60, 60);  // where it was
    post_mouse(WM_MOUSEMOVE, 61, 60);
    post_mouse(WM_RBUTTONUP, 61, 60);
    EXPECT_TRUE(loop(button::right, {{{2, 0, 0, 2, -1, 1}}}));
    EXPECT_THAT(moves, ElementsAre("102 82"));
}

// Kept: a wheel tells of its place on the screen, and the drag jumps there and back.
TEST_F(modal_drag, a_wheel_counts_as_a_movement_to_its_place_on_the_screen) {
    post(WM_MOUSEWHEEL, MAKEWPARAM(0, 120), MAKELPARAM(500, 400));
    EXPECT_TRUE(detect());
    post(WM_MOUSEWHEEL, MAKEWPARAM(0, 120), MAKELPARAM(500, 400));
    post(WM_MOUSEHWHEEL, MAKEWPARAM(0, 120), MAKELPARAM(300, 200));
    post_mouse(WM_MOUSEMOVE, 53, 40);
    post_mouse(WM_LBUTTONUP, 53, 40);
    EXPECT_TRUE(loop());
    EXPECT_THAT(moves, ElementsAre("500.5 400.5", "300.5 200.5", "53.5 40.5"));
}

TEST_F(modal_drag, escape_going_up_cancels_a_drag) {
    post(WM_KEYDOWN, VK_ESCAPE);
    post_mouse(WM_MOUSEMOVE, 53, 40);
    post(WM_KEYUP, VK_ESCAPE);
    EXPECT_FALSE(loop());
    EXPECT_THAT(moves, ElementsAre("53.5 40.5"));
}

TEST_F(modal_drag, losing_the_capture_cancels_a_drag) {
    const fakes::hidden_window thief(WS_POPUP | WS_VISIBLE);
    const HWND other = thief.get();
    const com::ptr<scene::IDeferredExecutionService> deferred(host);
    const auto steal = [](void* to) { SetCapture(static_cast<HWND>(to)); };
    // The host's own window is one of the system's: the message is answered here, as a window class does it.
    MSG call{};
    deferred->defer_execution(other, steal);
    ASSERT_TRUE(PeekMessageW(&call, window->get(), WM_USER, WM_USER, PM_REMOVE));
    bool stolen = false;
    const bool result = (post_mouse(WM_MOUSEMOVE, 53, 40), post_mouse(WM_MOUSEMOVE, 54, 40),
                         edge.site->drag_loop({50.5f, 40.5f}, button::left, identity, [&](D2D_POINT_2F) {
                             window_layer->on_window_message(call);
                             stolen = true;
                             return true;
                         }));
    EXPECT_TRUE(stolen);
    EXPECT_FALSE(result);
    EXPECT_EQ(other, GetCapture());
    ReleaseCapture();
    MSG rest{};
    EXPECT_TRUE(PeekMessageW(&rest, window->get(), WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE));
}

TEST_F(modal_drag, a_message_that_lets_the_mouse_go_cancels_a_drag) {
    post_mouse(WM_MOUSEMOVE, 53, 40);
    post(WM_CANCELMODE);
    post_mouse(WM_MOUSEMOVE, 54, 40);
    EXPECT_FALSE(loop());
    EXPECT_THAT(moves, ElementsAre("53.5 40.5"));
    MSG rest{};
    EXPECT_TRUE(PeekMessageW(&rest, window->get(), WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE));
}

TEST_F(modal_drag, the_end_of_the_program_ends_a_drag_well) {
    PostQuitMessage(3);
    EXPECT_TRUE(loop());
    MSG next{};
    EXPECT_FALSE(PeekMessageW(&next, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(modal_drag, nobody_to_report_to_throws_and_lets_the_mouse_go) {
    post_mouse(WM_MOUSEMOVE, 53, 40);
    EXPECT_THROW(edge.site->drag_loop({50.5f, 40.5f}, button::left, identity, nullptr),
                 std::bad_function_call);
}

TEST_F(modal_drag, the_window_may_go_in_a_drag) {
    post_mouse(WM_MOUSEMOVE, 53, 40);
    const bool result = edge.site->drag_loop({50.5f, 40.5f}, button::left, identity, [this](D2D_POINT_2F) {
        window_layer->detach_hwnd(window->get());
        window.reset();
        return true;
    });
    EXPECT_FALSE(result);
}

}  // namespace
