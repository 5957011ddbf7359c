// Buttons of each kind on the screen, used with a real mouse.

#include "controls/testing/control_window.h"

#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::button_kind;
using test_support::meanwhile;
using test_support::mouse_button;
using test_support::press_mouse;
using test_support::release_mouse;

/// A button of 100 by 30 pixels at (20, 20), whose label leaves its left part free.
class button_on_screen : public fakes::control_window, public testing::WithParamInterface<button_kind> {
protected:
    static constexpr D2D_RECT_F rect{20, 20, 120, 50};
    // On push buttons and marks alike.
    static constexpr POINT on_it{28, 35};
    static constexpr POINT off_it{170, 100};

    void SetUp() override {
        control_window::SetUp();
        const auto text = ui::create_text_label(L"Sail", nullptr, nullptr);
        button = GetParam().make(text.get(), rect, nullptr);
        button->set_on_click([this](bool checked) { clicks += checked ? '1' : '0'; });
        show(button->get_node());
        ASSERT_TRUE(face_is(white));
    }
    void TearDown() override {
        button.reset();
        control_window::TearDown();
    }

    /// Between outline and mark.
    [[nodiscard]] testing::AssertionResult face_is(std::uint32_t color) const { return shows(color, 22, 35); }
    /// The middle of the upper edge of frame or mark.
    [[nodiscard]] testing::AssertionResult outline_is(std::uint32_t color) const {
        return shows(color, 35, 20);
    }
    /// What an idle or hot face is once a click has latched.
    [[nodiscard]] std::uint32_t latched(std::uint32_t color) const {
        const bool is_push = GetParam().margin.left > 0;
        return is_push && button->is_checked() ? grey : color;
    }
    void point_at(POINT point) const { move_mouse(point.x, point.y); }
    /// Each click is too far from the one before to be the second of a double click.
    void click_it() {
        upper = !upper;
        test_support::click(handle(), {on_it.x, on_it.y + (upper ? -7 : 7)});
    }
    [[nodiscard]] bool clicked(const std::string& wanted) const {
        return becomes([&] { return clicks.size() >= wanted.size(); }) && clicks == wanted;
    }
    [[nodiscard]] std::string one() const { return GetParam().latches ? "1" : "0"; }

    com::ptr<ui::IButton> button;
    std::string clicks;

private:
    bool upper = false;
};
INSTANTIATE_TEST_SUITE_P(of, button_on_screen,
                         testing::Values(fakes::push_kind, fakes::latching_kind, fakes::radio_button_kind),
                         fakes::name_of_kind);

TEST_P(button_on_screen, lights_up_under_the_mouse) {
    EXPECT_TRUE(outline_is(grey));
    point_at(on_it);
    EXPECT_TRUE(face_is(pale));
    EXPECT_TRUE(outline_is(dark));
    point_at(off_it);
    EXPECT_TRUE(face_is(white));
    EXPECT_TRUE(outline_is(grey));
    point_at(on_it);
    EXPECT_TRUE(face_is(pale));
    test_support::move_mouse(GetDesktopWindow(), {700, 600});  // out of the window at once
    EXPECT_TRUE(face_is(white));
}

TEST_P(button_on_screen, clicks_where_press_and_release_are_on_it) {
    click_it();
    EXPECT_TRUE(clicked(one()));
    EXPECT_EQ(GetParam().latches, button->is_checked());
    EXPECT_TRUE(face_is(latched(pale)));
    click_it();
    EXPECT_TRUE(clicked(one() + "0"));
    EXPECT_TRUE(face_is(pale));
}

TEST_P(button_on_screen, follows_the_mouse_while_it_is_held) {
    bool held = false;
    meanwhile([&] {
        point_at(on_it);
        press_mouse();
        held = face_is(dark);
        point_at(off_it);
        held = held && face_is(pale);
        test_support::move_mouse(GetDesktopWindow(), {700, 600});
        held = held && face_is(pale);
        point_at(on_it);
        held = held && face_is(dark);
        in_window([&] { held = held && clicks.empty() && !button->is_checked(); });
        release_mouse();
    });
    EXPECT_TRUE(held);
    EXPECT_TRUE(clicked(one()));
    EXPECT_TRUE(face_is(latched(pale)));
    point_at(off_it);
    EXPECT_TRUE(face_is(latched(white)));
}

TEST_P(button_on_screen, released_elsewhere_clicks_nothing) {
    test_support::drag(handle(), on_it, off_it);
    point_at({off_it.x, off_it.y + 1});
    EXPECT_TRUE(face_is(white));
    test_support::drag(handle(), off_it, on_it);
    EXPECT_TRUE(face_is(pale));
    EXPECT_EQ("", clicks);
    EXPECT_FALSE(button->is_checked());
}

TEST_P(button_on_screen, escape_ends_the_press_as_a_release_does) {
    bool held = false;
    meanwhile([&] {
        point_at(on_it);
        press_mouse();
        held = face_is(dark);
        test_support::strike_key(VK_ESCAPE);
        held = held && face_is(latched(pale));
        release_mouse();
    });
    EXPECT_TRUE(held);
    EXPECT_TRUE(clicked(one()));
}

TEST_P(button_on_screen, other_mouse_buttons_click_nothing) {
    for (const auto other : {mouse_button::right, mouse_button::middle}) {
        test_support::click(handle(), on_it, other);
        EXPECT_TRUE(face_is(pale));
    }
    EXPECT_EQ("", clicks);
    point_at(off_it);
    EXPECT_TRUE(face_is(white));
    EXPECT_TRUE(outline_is(dark));  // they take the focus
}

TEST_P(button_on_screen, other_mouse_buttons_change_nothing_while_it_is_held) {
    bool held = false;
    meanwhile([&] {
        point_at(on_it);
        press_mouse();
        press_mouse(mouse_button::right);
        release_mouse(mouse_button::right);
        held = face_is(dark);
        release_mouse();
    });
    EXPECT_TRUE(held);
    EXPECT_TRUE(clicked(one()));
}

TEST_P(button_on_screen, second_press_of_a_double_click_is_none) {
    test_support::double_click(handle(), on_it);
    test_support::pump_until_idle();
    EXPECT_TRUE(clicked(one()));
    EXPECT_TRUE(face_is(latched(pale)));
}

TEST_P(button_on_screen, shows_the_focus_of_a_click_while_the_window_has_it) {
    click_it();
    ASSERT_TRUE(clicked(one()));
    point_at(off_it);
    EXPECT_TRUE(face_is(latched(white)));
    EXPECT_TRUE(outline_is(dark));
    {
        win32_scene_window other;
        other.create_window(0, L"other", WS_POPUP, 400, 60, 100, 80, nullptr, nullptr);
        test_support::bring_to_front(other.get_window_handle());
        EXPECT_TRUE(outline_is(latched(grey)));
        other.destroy_window();
    }
    test_support::bring_to_front(handle());
    SetFocus(handle());
    EXPECT_TRUE(outline_is(dark));
    window->root_node()->set_focus();
    EXPECT_TRUE(outline_is(latched(grey)));
}

TEST_P(button_on_screen, keys_do_not_press_it) {
    click_it();
    ASSERT_TRUE(clicked(one()));
    for (const WORD key : {WORD{VK_SPACE}, WORD{VK_RETURN}}) test_support::strike_key(key);
    EXPECT_EQ(one(), clicks);
}

TEST_P(button_on_screen, disabled_lights_up_grey_and_hears_nothing) {
    button->set_enabled(false);
    EXPECT_TRUE(outline_is(grey));
    click_it();
    EXPECT_TRUE(face_is(light));
    EXPECT_TRUE(outline_is(black));
    point_at(off_it);
    EXPECT_TRUE(face_is(white));
    EXPECT_TRUE(outline_is(grey));  // no focus either
    button->set_enabled(true);
    click_it();
    EXPECT_TRUE(clicked(one()));
}

TEST_P(button_on_screen, disabled_while_it_is_held_is_seen_at_once_and_clicks_at_the_release) {
    bool held = false;
    meanwhile([&] {
        point_at(on_it);
        press_mouse();
        held = face_is(dark);
        in_window([&] { button->set_enabled(false); });
        held = held && face_is(light);
        release_mouse();
    });
    EXPECT_TRUE(held);
    EXPECT_TRUE(clicked(one()));
    EXPECT_TRUE(face_is(light));
}

TEST_P(button_on_screen, loop_of_a_press_serves_the_messages_of_the_window) {
    bool held = false;
    constexpr UINT_PTR timer = 77;
    static int fired;
    fired = 0;
    meanwhile([&] {
        point_at(on_it);
        press_mouse();
        in_window([&] { SetTimer(handle(), timer, 20, [](HWND, UINT, UINT_PTR, DWORD) { ++fired; }); });
        held = becomes([] { return fired > 2; });
        in_window([&] {
            KillTimer(handle(), timer);
            button->arrange({60, 60, 160, 90});
        });
        held = held && shows(green, 22, 35);
        held = held && shows(dark, 62, 75);
        point_at({68, 75});
        release_mouse();
    });
    EXPECT_TRUE(held);
    EXPECT_TRUE(clicked(one()));
}

TEST_P(button_on_screen, released_from_memory_while_it_is_held_clicks_and_goes) {
    std::weak_ptr<int> watched;
    {
        const auto token_of_life = std::make_shared<int>(1);
        watched = token_of_life;
        button->set_on_click([this, token_of_life](bool checked) { clicks += checked ? '1' : '0'; });
    }
    bool held = false;
    meanwhile([&] {
        point_at(on_it);
        press_mouse();
        held = face_is(dark);
        in_window([&] {
            const auto node = button->get_node();
            button.reset();
            window->remContent(node.get());
        });
        held = held && shows(green, 22, 35);
        in_window([&] { held = held && !watched.expired(); });
        release_mouse();
    });
    EXPECT_TRUE(held);
    EXPECT_TRUE(clicked(one()));
    EXPECT_TRUE(watched.expired());
}

TEST_P(button_on_screen, window_may_go_while_it_is_held) {
    meanwhile([&] {
        point_at(on_it);
        press_mouse();
        static_cast<void>(face_is(dark));
        in_window([&] {
            window->destroy_window();
            PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);  // the loop looks behind each message
        });
        release_mouse();
    });
    EXPECT_TRUE(clicked(one()));  // that is where the mouse was
    EXPECT_EQ(nullptr, handle());
}

TEST_P(button_on_screen, mouse_taken_away_ends_the_press) {
    bool held = false;
    meanwhile([&] {
        point_at(on_it);
        press_mouse();
        held = face_is(dark);
        point_at(off_it);
        held = held && face_is(pale);
        in_window([] { ReleaseCapture(); });
        point_at({off_it.x - 1, off_it.y});  // ends the loop
        point_at({off_it.x - 2, off_it.y});  // goes to the scene
        held = held && face_is(white);
        release_mouse();
    });
    EXPECT_TRUE(held);
    EXPECT_EQ("", clicks);
}

TEST_P(button_on_screen, call_may_run_a_message_loop_with_further_clicks) {
    button->set_on_click([this](bool) {
        clicks += '(';
        const bool waits = clicks.size() < 3;
        if (waits) static_cast<void>(becomes([this] { return clicks.size() > 3; }));
        clicks += ')';
    });
    meanwhile([&] {
        click_it();
        static_cast<void>(becomes([&] { return clicks == "("; }));
        click_it();
        static_cast<void>(becomes([&] { return clicks == "(("; }));
        click_it();
    });
    EXPECT_EQ("((()))", clicks);
    EXPECT_TRUE(face_is(latched(pale)));
    point_at(off_it);
    EXPECT_TRUE(face_is(latched(white)));
}

TEST_P(button_on_screen, exception_of_its_call_reaches_the_message_loop) {
    button->set_on_click([](bool) { throw std::runtime_error("not now"); });
    std::string thrown;
    try {
        click_it();
        test_support::pump_until_idle();
    } catch (const std::runtime_error& error) {
        thrown = error.what();
    }
    EXPECT_EQ("not now", thrown);
    EXPECT_EQ(nullptr, GetCapture());
    button->set_on_click([this](bool checked) { clicks += checked ? '1' : '0'; });
    EXPECT_TRUE(face_is(latched(pale)));
    click_it();
    EXPECT_TRUE(clicked("0"));
}

// Where they are hit

class mark_on_screen : public button_on_screen {};
INSTANTIATE_TEST_SUITE_P(of, mark_on_screen, testing::Values(fakes::check_box_kind, fakes::radio_button_kind),
                         fakes::name_of_kind);

TEST_P(mark_on_screen, corners_are_outside_and_the_edges_inside) {
    const POINT corners[] = {{20, 20}, {49, 20}, {20, 49}, {49, 49}};
    const POINT edges[] = {{35, 21}, {35, 48}, {21, 35}, {48, 35}};
    for (const POINT corner : corners) {
        point_at(off_it);
        ASSERT_TRUE(face_is(white));
        point_at(corner);
        test_support::pump_until_idle();
        EXPECT_TRUE(face_is(white)) << corner.x << ", " << corner.y;
        test_support::click(handle(), corner);
        EXPECT_EQ("", clicks);
    }
    for (const POINT edge : edges) {
        point_at(edge);
        EXPECT_TRUE(face_is(pale)) << edge.x << ", " << edge.y;
        point_at(off_it);
        ASSERT_TRUE(face_is(white));
    }
}

TEST_P(mark_on_screen, label_is_hot_and_takes_clicks_that_do_not_move) {
    const POINT on_label{62, 35};  // the label begins 2 pixels behind the mark
    point_at(on_label);
    EXPECT_TRUE(face_is(pale));
    point_at({51, 24});  // between them
    EXPECT_TRUE(face_is(white));
    test_support::click(handle(), on_label);
    EXPECT_TRUE(clicked("1"));
    test_support::drag(handle(), on_label, {on_label.x + 3, on_label.y}, 1);
    EXPECT_EQ("1", clicks);
    test_support::drag(handle(), on_label, on_it, 2);
    EXPECT_TRUE(clicked("10"));
}

}  // namespace
}  // namespace d2d
