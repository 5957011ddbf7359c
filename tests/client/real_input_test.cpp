// Real input into a real window, as the nodes of its scene see it.

#include "d2d/win32_scene_window.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "support/message_pump.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using d2d::scene::INode;
using events = std::vector<std::string>;

namespace event_type = d2d::input::mouse::event_type;

std::string text_of(const d2d::input::mouse::event& event) {
    static constexpr const char* names[] = {
        "enter", "move", "leave", "down", "up", "double", "wheel", "horizontal wheel", "hover", "hover end"};
    std::string text = names[event.type];
    if (event.button) text += " " + std::to_string(static_cast<int>(*event.button));
    if (event.wheel_delta != 0) text += " " + std::to_string(event.wheel_delta);
    return text;
}

/// A scene window with one node that takes every point, has the focus, and writes down what it hears.
class real_input : public test_support::leak_checked_test {
protected:
    static constexpr POINT middle{100, 60};

    void SetUp() override {
        leak_checked_test::SetUp();
        test_support::move_mouse(GetDesktopWindow(), {700, 600});  // where the window will not be
        window = std::make_unique<d2d::win32_scene_window>();
        node = d2d::scene::create_node();
        node->set_hit_mode(INode::hit_solid);
        node->add_mouse_handler([this](INode*, int, d2d::input::mouse::event event) {
            seen.push_back(text_of(event));
            last = event;
            return false;
        });
        node->set_key_handler([this](INode*, int, d2d::input::key::event event) {
            seen.push_back((event.down ? "down " : "up ") + std::to_string(event.key) + " with " +
                           std::to_string(event.modifiers) + (event.repeat && event.down ? " again" : ""));
            return false;
        });
        node->set_char_handler([this](INode*, int, wchar_t character) {
            typed += character;
            return true;
        });
        window->addContent(node.get());
        window->create_window(0, L"input", WS_POPUP, 60, 60, 200, 120, nullptr, nullptr);
        test_support::bring_to_front(window->get_window_handle());
        node->set_focus();
        test_support::pump_until_idle();
        seen.clear();
    }

    void TearDown() override {
        window->destroy_window();
        window.reset();
        node.reset();
        leak_checked_test::TearDown();
    }

    [[nodiscard]] HWND handle() const { return window->get_window_handle(); }

    void enter() {
        test_support::move_mouse(handle(), middle);
        ASSERT_TRUE(hears("enter"));
        seen.clear();
    }

    /// Waits until the last event is `what`.
    bool hears(const std::string& what) {
        return test_support::pump_until([&] { return !seen.empty() && seen.back() == what; });
    }

    static void send_mouse(DWORD flags, DWORD data) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        input.mi.mouseData = data;
        ASSERT_EQ(1u, SendInput(1, &input, sizeof(input)));
    }

    std::unique_ptr<d2d::win32_scene_window> window;
    com::ptr<INode> node;
    events seen;
    std::wstring typed;
    d2d::input::mouse::event last{};
};

TEST_F(real_input, first_movement_is_the_entering_and_the_next_a_move) {
    test_support::move_mouse(handle(), middle);
    ASSERT_TRUE(hears("enter"));
    test_support::move_mouse(handle(), {120, 70});
    ASSERT_TRUE(hears("move"));
    EXPECT_EQ(120.5f, last.position.x);
    EXPECT_EQ(70.5f, last.position.y);
}

TEST_F(real_input, each_button_goes_down_and_up) {
    enter();
    test_support::click(handle(), middle, test_support::mouse_button::left);
    ASSERT_TRUE(hears("up 0"));
    test_support::click(handle(), middle, test_support::mouse_button::right);
    ASSERT_TRUE(hears("up 1"));
    test_support::click(handle(), middle, test_support::mouse_button::middle);
    ASSERT_TRUE(hears("up 4"));
    for (const DWORD x_button : {DWORD{XBUTTON1}, DWORD{XBUTTON2}}) {
        seen.clear();
        send_mouse(MOUSEEVENTF_XDOWN, x_button);
        send_mouse(MOUSEEVENTF_XUP, x_button);
        ASSERT_TRUE(hears("up 5"));
        EXPECT_EQ((events{"down 5", "up 5"}), seen);
    }
}

TEST_F(real_input, second_press_at_once_is_a_double_click) {
    enter();
    test_support::double_click(handle(), middle);
    ASSERT_TRUE(test_support::pump_until([&] { return seen.size() >= 4 && seen.back() == "up 0"; }));
    events buttons;
    for (const auto& event : seen) {
        if (event != "move") buttons.push_back(event);
    }
    EXPECT_EQ((events{"down 0", "up 0", "double 0", "up 0"}), buttons);
}

TEST_F(real_input, wheels_report_their_turns_at_the_place_of_the_mouse) {
    enter();
    test_support::turn_wheel(-1);
    ASSERT_TRUE(hears("wheel -120"));
    EXPECT_EQ(100.5f, last.position.x);
    EXPECT_EQ(60.5f, last.position.y);
    test_support::turn_wheel(2);
    ASSERT_TRUE(hears("wheel 240"));
    test_support::turn_horizontal_wheel(1);
    ASSERT_TRUE(hears("horizontal wheel 120"));
}

TEST_F(real_input, mouse_at_rest_hovers_after_400_milliseconds_until_it_moves) {
    enter();
    const auto start = GetTickCount64();
    ASSERT_TRUE(hears("hover"));
    // The entering was some messages ago; timers are early by a tick of the system at most.
    EXPECT_GE(GetTickCount64() - start, 300u);
    test_support::move_mouse(handle(), {101, 60});
    ASSERT_TRUE(hears("move"));
    ASSERT_GE(seen.size(), 2u);
    EXPECT_EQ("hover end", seen[seen.size() - 2]);
}

TEST_F(real_input, leaving_ends_the_hovering_first) {
    enter();
    ASSERT_TRUE(hears("hover"));
    seen.clear();
    test_support::move_mouse(handle(), {400, 300});
    ASSERT_TRUE(hears("leave"));
    EXPECT_EQ((events{"hover end", "leave"}), seen);
    test_support::move_mouse(handle(), middle);
    EXPECT_TRUE(hears("enter"));
}

TEST_F(real_input, keys_go_to_the_focus_with_their_modifiers) {
    test_support::strike_key(VK_F5);
    ASSERT_TRUE(hears("up 116 with 0"));
    EXPECT_EQ((events{"down 116 with 0", "up 116 with 0"}), seen);
    seen.clear();
    test_support::strike_key(VK_F5, {VK_SHIFT, VK_CONTROL});
    ASSERT_TRUE(test_support::pump_until([&] { return seen.size() >= 6; }));
    EXPECT_EQ("down 116 with 6", seen[2]);
    EXPECT_EQ("up 116 with 6", seen[3]);
    seen.clear();
    test_support::press_key(VK_F5);
    test_support::press_key(VK_F5);
    test_support::release_key(VK_F5);
    ASSERT_TRUE(hears("up 116 with 0"));
    EXPECT_EQ((events{"down 116 with 0", "down 116 with 0 again", "up 116 with 0"}), seen);
}

TEST_F(real_input, typed_text_arrives_unit_by_unit) {
    test_support::type_text(L"aÄж\xD83D\xDE00");
    ASSERT_TRUE(test_support::pump_until([&] { return typed.size() >= 5; }));
    EXPECT_EQ(L"aÄж\xD83D\xDE00", typed);
}

}  // namespace
