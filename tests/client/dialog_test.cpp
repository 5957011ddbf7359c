// Modal dialogs, in both forms of their controls, driven by real input.

#include "dialog_test.h"
#include "onlooker.h"
#include "support/resource_counts.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/element_metrics.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <vector>

namespace {

using namespace ui::mossHarbour;
using client_test::child_window;
using client_test::expect_soon;
using client_test::form;
using client_test::while_shown;
using client_test::window_above;
using testing::ElementsAre;
using testing::ThrowsMessage;

class dialog : public client_test::dialog_test {};

INSTANTIATE_TEST_SUITE_P(forms, dialog, testing::ValuesIn(client_test::all_forms),
                         client_test::name_of<testing::TestParamInfo<form>>);

/// Gives the focus to its first control.
class dialog_with_focus : public client_test::dialog_test {};

INSTANTIATE_TEST_SUITE_P(forms, dialog_with_focus, testing::Values(form::native),
                         client_test::name_of<testing::TestParamInfo<form>>);

struct buttons_case {
    int buttons;
    const wchar_t* first;  // null for none
    const wchar_t* second;
    const char* golden;
};

TEST_P(dialog, has_the_buttons_that_were_asked_for_and_their_results) {
    const buttons_case cases[] = {
        {0, L"OK", nullptr, "dialogs/ok"},       {1, L"OK", L"Cancel", "dialogs/ok_cancel"},
        {2, nullptr, L"Close", "dialogs/close"}, {3, L"Yes", L"No", "dialogs/yes_no"},
        {4, L"OK", nullptr, "dialogs/ok"},       {-1, L"OK", nullptr, "dialogs/ok"}};
    for (const buttons_case& each : cases) {
        SCOPED_TRACE(each.buttons);
        const auto details = plain(static_cast<dialog_buttons>(each.buttons));
        const auto look = [&](HWND window) {
            if (GetParam() == form::native) return;  // whose buttons are found by their texts
            constexpr test_support::tolerance fonts{.channel = 24, .pixels = 60};
            const client_test::awaited_golden golden(each.golden, fonts);
            client_test::onlooker eye(window);
            for (int attempts = 100; attempts > 0; --attempts) {
                // Off all buttons, time and again: a late report of the screen may put the mouse back.
                test_support::move_mouse(window, {2 + attempts % 2, 2});
                eye.look();
                if (golden.likeness_of(eye.shown()) != client_test::likeness::none) break;
                test_support::pump_for(std::chrono::milliseconds(50));
            }
            EXPECT_TRUE(golden.matches(eye.shown()));
        };
        if (each.first) {
            EXPECT_TRUE(show(details, [&](HWND window) {
                look(window);
                press(window, each.first, each.second);
            }));
        }
        if (each.second) {
            EXPECT_FALSE(show(details, [&](HWND window) {
                if (!each.first) look(window);
                press(window, each.second);
            }));
        }
    }
}

TEST_P(dialog, is_closed_by_its_frame_without_a_result) {
    // As its box, Alt+F4 and the system menu send it, and as other programs do.
    constexpr struct {
        UINT message;
        WPARAM parameter;
    } ways[] = {{WM_SYSCOMMAND, SC_CLOSE}, {WM_CLOSE, 0}};
    for (const auto& way : ways) {
        SCOPED_TRACE(way.message);
        std::vector<bool> asked;
        auto details = plain(dialog_buttons::ok_cancel);
        details.on_result = [&](bool result) {
            asked.push_back(result);
            return true;
        };
        EXPECT_FALSE(
            show(details, [&](HWND window) { PostMessageW(window, way.message, way.parameter, 0); }));
        EXPECT_THAT(asked, ElementsAre(false));
    }
}

TEST_P(dialog, stays_until_its_result_is_accepted) {
    std::atomic<int> count = 0;
    std::vector<bool> asked;
    auto details = plain(dialog_buttons::yes_no);
    details.on_result = [&](bool result) {
        asked.push_back(result);
        return ++count == 4;
    };
    EXPECT_FALSE(show(details, [&](HWND window) {
        press(window, L"Yes", L"No");
        expect_soon([&] { return count == 1; }, "a question");
        press(window, L"No");
        expect_soon([&] { return count == 2; }, "a question");
        EXPECT_TRUE(IsWindowVisible(window));
        EXPECT_FALSE(IsWindowEnabled(owner->handle()));
        press(window, L"Yes", L"No");
        expect_soon([&] { return count == 3; }, "a question");
        PostMessageW(window, WM_CLOSE, 0, 0);
    }));
    EXPECT_THAT(asked, ElementsAre(true, false, true, false));
}

TEST_P(dialog, tells_when_its_controls_are_there_and_it_is_not_shown_yet) {
    const auto button = create_push_button_control();
    int told = 0;
    bool accepted = false;
    auto details = plain(dialog_buttons::ok_cancel);
    details.content = client_test::fixed(button, body.cx, body.cy);
    details.on_created = [&] {
        ++told;
        button->set_text(L"go");
        EXPECT_EQ(owner->owned(), 1);
        EXPECT_EQ(GetForegroundWindow(), owner->handle());
        EXPECT_TRUE(IsWindowEnabled(owner->handle()));
        if (GetParam() == form::native) {
            const HWND window = GetWindow(owner->handle(), GW_ENABLEDPOPUP);
            EXPECT_EQ(FindWindowExW(window, nullptr, L"BUTTON", L"OK"), nullptr);
        }
    };
    details.on_result = [&](bool result) {
        button->set_text(L"gone");  // the controls are there still
        EXPECT_EQ(told, 1);
        accepted = result;
        return true;
    };
    EXPECT_TRUE(show(details, [&](HWND window) { press(window, L"OK", L"Cancel"); }));
    EXPECT_TRUE(accepted);
    EXPECT_EQ(owner->changes(), 2);  // disabled, and enabled again
    EXPECT_THROW(button->set_text(L""), std::logic_error);
}

TEST_P(dialog, takes_what_is_typed_and_gives_it_when_it_ends) {
    const auto edit = create_edit_control();
    auto details = plain(dialog_buttons::ok_cancel);
    details.content = client_test::fixed(edit, body.cx, 20);
    details.on_created = [&] { edit->set_text(L"MS "); };
    wchar_t text[20]{};
    details.on_result = [&](bool) {
        edit->get_text(text, 20);
        return true;
    };
    EXPECT_TRUE(show(details, [&](HWND window) {
        const HWND field = GetParam() == form::scene ? window : child_window(window, L"EDIT", nullptr);
        const LONG inset = GetParam() == form::scene ? em : 0;
        test_support::click(field, {inset + 100, inset + 10});
        test_support::type_text(L"M\u00fcggelsee");
        press(window, L"OK", L"Cancel");
    }));
    EXPECT_STREQ(text, L"MS M\u00fcggelsee");
}

TEST_P(dialog_with_focus, shows_the_text_of_its_field_from_the_start) {
    const auto edit = create_edit_control();
    auto details = plain(dialog_buttons::ok);
    details.content = client_test::fixed(edit, body.cx, 20);
    details.on_created = [&] { edit->set_text(L"MS M\u00fcggelsee"); };
    show(details, [&](HWND window) {
        const HWND field = child_window(window, L"EDIT", nullptr);
        const auto first = static_cast<short>(LOWORD(SendMessageW(field, EM_POSFROMCHAR, 0, 0)));
        const auto last = static_cast<short>(LOWORD(SendMessageW(field, EM_POSFROMCHAR, 10, 0)));
        EXPECT_THAT(first, testing::AllOf(testing::Ge(0), testing::Lt(8)));
        EXPECT_GT(last, 40);
        DWORD from = 0;
        DWORD to = 0;
        SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        EXPECT_EQ(from, 0u);
        EXPECT_EQ(to, 12u);
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
}

TEST_P(dialog_with_focus, is_served_by_keys_and_has_no_button_for_escape) {
    const auto escape_and = [](const std::vector<WORD>& keys) {
        return [keys](HWND window) {
            test_support::click(window, {2, 2});
            test_support::strike_key(VK_ESCAPE);
            SendMessageW(window, WM_NULL, 0, 0);  // back when the loop has run
            EXPECT_TRUE(IsWindowVisible(window));
            for (const WORD key : keys) test_support::strike_key(key);
        };
    };
    EXPECT_TRUE(show(plain(dialog_buttons::ok_cancel), escape_and({VK_SPACE})));
    EXPECT_FALSE(show(plain(dialog_buttons::ok_cancel), escape_and({VK_TAB, VK_SPACE})));
    EXPECT_TRUE(show(plain(dialog_buttons::yes_no), escape_and({VK_TAB, VK_TAB, VK_SPACE})));
}

TEST_P(dialog, leaves_no_resources_behind) {
    auto details = plain(dialog_buttons::yes_no);
    details.on_created = [] { PostQuitMessage(0); };
    test_support::expect_no_growth([&] { EXPECT_FALSE(show(owner->handle(), details)); });
}

TEST_P(dialog, is_centred_on_the_window_that_its_owner_is_in) {
    RECT around{};
    RECT place{};
    RECT client{};
    wchar_t title[20]{};
    LONG style = 0;
    GetWindowRect(owner->handle(), &around);
    while_shown(
        [&] {
            const HWND window = shown_above(owner->handle());
            GetWindowRect(window, &place);
            GetClientRect(window, &client);
            GetWindowTextW(window, title, 20);
            style = GetWindowLongW(window, GWL_STYLE);
            PostMessageW(window, WM_CLOSE, 0, 0);
        },
        [&] { EXPECT_FALSE(show(owner->child(), plain(dialog_buttons::ok))); });
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    EXPECT_EQ(place.left, ((around.right - around.left) - width) / 2 + around.left);
    EXPECT_EQ(place.top, ((around.bottom - around.top) - height) / 2 + around.top);
    EXPECT_STREQ(title, L"dialog");
    EXPECT_EQ(style & ~(WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS),
              static_cast<LONG>(WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME));
    RECT frame{0, 0, client.right, client.bottom};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(style), FALSE, 0);
    EXPECT_EQ(width, frame.right - frame.left);
    EXPECT_EQ(client.right, body.cx + 2 * em);
    if (GetParam() == form::native) return;  // where the height of a button is not known from here
    EXPECT_EQ(client.bottom, body.cy + em / 2 + button_height + 2 * em);
}

TEST_P(dialog, without_a_proper_size_leaves_the_owner_alone) {
    const SIZE bodies[] = {{unbounded_extent, 10}, {10, unbounded_extent}, {0x4000, 10}, {10, -1000}};
    for (const auto& [width, height] : bodies) {
        auto details = plain(dialog_buttons::ok);
        details.content = client_test::blank(width, height);
        EXPECT_THAT([&] { static_cast<void>(show(owner->handle(), details)); },
                    ThrowsMessage<std::logic_error>("Dialog layout resulted in an invalid size!"))
            << width << " x " << height;
    }
    EXPECT_EQ(owner->changes(), 0);
}

}  // namespace
