// Popup options on the screen, used with a real mouse: their list is a window of its own.

#include "controls/testing/control_window.h"
#include "d2d/ui/IPopupOptions.h"
#include "support/resource_counts.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace d2d {
namespace {

using test_support::click;
using test_support::meanwhile;
using test_support::press_mouse;
using test_support::release_mouse;

/// Three options in rows of 22 pixels, on a control at (10, 50). The labels are short: at x = 20 there is
/// none.
class popup_on_screen : public fakes::floating_control_window {
protected:
    static constexpr POINT on_control{20, 60};
    static constexpr POINT on_second_row{20, 84};
    static constexpr POINT on_third_row{20, 106};
    static constexpr POINT off_it{190, 10};

    void SetUp() override {
        floating_control_window::SetUp();
        const auto label = [](std::wstring_view text) {
            return com::ptr<ui::ILabel>(ui::create_text_label(text, nullptr, nullptr));
        };
        popup = ui::create_popup_options(
            {10, 50, 150, 74}, {{1, label(L"Alfa")}, {2, label(L"Bravo")}, {3, label(L"Charlie")}}, nullptr);
        popup->set_selected(1);
        popup->set_on_change([this](std::optional<int> id) { changed_to = id; });
        show(popup->get_node());
        ASSERT_TRUE(shows(white, on_control.x, on_control.y));
    }
    void TearDown() override {
        popup.reset();
        floating_control_window::TearDown();
    }

    void open() {
        click(handle(), on_control);
        ASSERT_TRUE(becomes_open());
    }
    [[nodiscard]] testing::AssertionResult becomes_open() const { return shows(white, 20, 110); }
    [[nodiscard]] testing::AssertionResult becomes_closed() const { return shows(green, 20, 110); }

    com::ptr<ui::IPopupOptions> popup;
    std::optional<int> changed_to;
};

TEST_F(popup_on_screen, a_drag_in_the_list_chooses) {
    move_mouse(on_control.x, on_control.y);
    EXPECT_TRUE(shows(pale, on_control.x, on_control.y));
    open();
    EXPECT_NE(handle(), GetFocus());
    meanwhile([&] {
        press_mouse();
        EXPECT_TRUE(shows(dark, on_control.x, on_control.y));
        move_mouse(on_second_row.x, on_second_row.y);
        EXPECT_TRUE(shows(dark, on_second_row.x, on_second_row.y));
        EXPECT_TRUE(shows(white, on_control.x, on_control.y));
        move_mouse(on_third_row.x, on_third_row.y);
        EXPECT_TRUE(shows(dark, on_third_row.x, on_third_row.y));
        release_mouse();
    });
    EXPECT_TRUE(becomes_closed());
    EXPECT_EQ(3, changed_to);
    EXPECT_EQ(3, popup->get_selected());
    EXPECT_EQ(handle(), GetFocus());
    EXPECT_TRUE(popup->get_node()->has_focus(false));
    EXPECT_TRUE(shows(dark, 10, 60)) << "the outline of what has the focus";
}

TEST_F(popup_on_screen, the_list_reaches_beyond_the_window_and_leaves_nothing_there) {
    constexpr POINT beyond{20, 146};
    const auto screen_before = screen_at(beyond);
    const auto windows_before = test_support::own_windows();
    popup->arrange({10, 90, 150, 114});
    ASSERT_TRUE(shows(white, 20, 100));
    click(handle(), {20, 100});
    ASSERT_TRUE(shows_beyond(white, beyond));
    meanwhile([&] {
        press_mouse();
        EXPECT_TRUE(shows(dark, 20, 100));
        move_mouse(beyond.x, beyond.y);
        EXPECT_TRUE(shows_beyond(dark, beyond));
        release_mouse();
    });
    EXPECT_TRUE(shows_beyond(screen_before, beyond));
    EXPECT_EQ(3, changed_to);
    EXPECT_EQ(windows_before, test_support::own_windows());
}

TEST_F(popup_on_screen, the_list_goes_with_the_focus) {
    open();
    SetFocus(handle());
    EXPECT_TRUE(becomes_closed());
    EXPECT_EQ(std::nullopt, changed_to);
    EXPECT_TRUE(shows(pale, on_control.x, on_control.y)) << "the mouse is there still";
    click(handle(), {30, 66});  // no double click
    ASSERT_TRUE(becomes_open());
    SetFocus(nullptr);
    EXPECT_TRUE(becomes_closed());
    EXPECT_EQ(1, popup->get_selected());
}

TEST_F(popup_on_screen, a_press_with_another_button_opens_nothing) {
    click(handle(), on_control, test_support::mouse_button::right);
    EXPECT_TRUE(shows(dark, 10, 60)) << "the focus is there";
    EXPECT_TRUE(shows(green, 20, 110));
}

TEST_F(popup_on_screen, a_release_off_the_list_chooses_nothing) {
    open();
    meanwhile([&] {
        press_mouse();
        move_mouse(off_it.x, off_it.y);
        EXPECT_TRUE(shows(white, on_control.x, on_control.y));
        release_mouse();
    });
    EXPECT_TRUE(becomes_closed());
    EXPECT_EQ(std::nullopt, changed_to);
}

TEST_F(popup_on_screen, a_click_elsewhere_in_the_window_closes) {
    open();
    click(handle(), off_it);
    EXPECT_TRUE(becomes_closed());
    EXPECT_EQ(std::nullopt, changed_to);
    EXPECT_EQ(1, popup->get_selected());
}

TEST_F(popup_on_screen, the_focus_may_go_in_the_middle_of_a_drag) {
    open();
    meanwhile([&] {
        press_mouse();
        in_window([&] { SetFocus(handle()); });
        EXPECT_TRUE(becomes_closed());
        release_mouse();
    });
    EXPECT_EQ(std::nullopt, changed_to);
}

TEST_F(popup_on_screen, the_control_may_go_in_the_middle_of_a_drag) {
    open();
    meanwhile([&] {
        press_mouse();
        in_window([&] { popup.reset(); });
        EXPECT_TRUE(becomes_closed());
        release_mouse();
    });
    EXPECT_EQ(std::nullopt, changed_to);
}

TEST_F(popup_on_screen, the_window_may_go_in_the_middle_of_a_drag) {
    open();
    const DWORD thread = GetCurrentThreadId();
    meanwhile([&] {
        press_mouse();
        const HWND gone = handle();
        window->run([&] { window->destroy_window(); });
        EXPECT_FALSE(IsWindow(gone));
        PostThreadMessageW(thread, WM_NULL, 0,
                           0);  // the loop of the drag waits for messages, not for windows
        release_mouse();
    });
    EXPECT_EQ(std::nullopt, changed_to);
}

TEST_F(popup_on_screen, the_control_may_go_while_its_list_is_open) {
    open();
    popup.reset();
    EXPECT_TRUE(becomes_closed());
}

TEST_F(popup_on_screen, a_change_may_release_the_control_and_its_node) {
    popup->set_on_change([&](std::optional<int> id) {
        changed_to = id;
        const auto node = popup->get_node();
        node->get_parent()->remove_child(node);
        popup.reset();
    });
    open();
    click(handle(), on_second_row);
    EXPECT_TRUE(shows(green, on_control.x, on_control.y));
    EXPECT_EQ(2, changed_to);
}

TEST_F(popup_on_screen, what_a_change_throws_reaches_the_message_loop) {
    popup->set_on_change([](std::optional<int>) { throw std::runtime_error("mine"); });
    open();
    EXPECT_THROW(
        {
            click(handle(), on_second_row);
            static_cast<void>(becomes([] { return false; }));
        },
        std::runtime_error);
    EXPECT_TRUE(becomes_closed());
    EXPECT_EQ(2, popup->get_selected());
}

}  // namespace
}  // namespace d2d
