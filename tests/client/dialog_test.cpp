// Modal dialogs, in both forms of their controls, driven by real input.

#include "d2d/factory.h"
#include "modal_call.h"
#include "onlooker.h"
#include "portable_forms.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IModalService.h"
#include "ui/mossHarbour/IPushButtonControl.h"
#include "ui/mossHarbour/element_metrics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <optional>
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
using dialog_details = IModalService::dialog_details;

constexpr SIZE body{200, 60};

class dialog : public test_support::leak_checked_test, public testing::WithParamInterface<form> {
protected:
    static void SetUpTestSuite() { graphics.emplace(); }
    static void TearDownTestSuite() { graphics.reset(); }
    void SetUp() override {
        leak_checked_test::SetUp();
        owner.emplace();
        em = client_test::font_height();
        button_height = client_test::scene_button_size(L"OK").cy;
    }
    void TearDown() override {
        EXPECT_TRUE(IsWindowEnabled(owner->handle()));
        EXPECT_EQ(owner->owned(), 0);
        owner.reset();
        leak_checked_test::TearDown();
    }

    [[nodiscard]] static dialog_details plain(dialog_buttons buttons) {
        return {client_test::blank(body.cx, body.cy), {}, {}, L"dialog", buttons};
    }
    [[nodiscard]] bool show(HWND above, const dialog_details& details) const {
        return GetParam() == form::scene ? showDialogHwnd(above, true, details)
                                         : showDialogHwnd(above, details);
    }
    /// Shows a dialog above the owner while `actions(its window)` run.
    template <class Actions>
    bool show(const dialog_details& details, Actions&& actions) {
        bool result = false;
        while_shown([&] { actions(shown_above(owner->handle())); },
                    [&] { result = show(owner->handle(), details); });
        return result;
    }
    /// The dialog above a window that is disabled by now.
    [[nodiscard]] static HWND shown_above(HWND above) {
        const HWND found = window_above(above);
        expect_soon([above] { return !IsWindowEnabled(above); }, "a disabled owner");
        return found;
    }

    /// Presses one of a dialog's buttons: the last, or the one ahead of `next`.
    void press(HWND window, const wchar_t* text, const wchar_t* next = nullptr) const {
        if (GetParam() == form::native) {
            test_support::click(child_window(window, L"BUTTON", text), {4, 4});
            return;
        }
        RECT client{};
        GetClientRect(window, &client);
        const LONG from_right = next ? 10 * em + em / 2 : 4 * em;  // each is about six ems wide
        test_support::click(window, {client.right - from_right, client.bottom - em - button_height / 2});
    }
    /// Presses a button that is the body, with the text "go".
    void press_body(HWND window) const {
        if (GetParam() == form::native) {
            test_support::click(child_window(window, L"BUTTON", L"go"), {4, 4});
        } else {
            test_support::click(window, {em + 10, em + 10});
        }
    }
    /// A dialog whose body is a button with the text "go".
    [[nodiscard]] static dialog_details with_button(std::function<void(IPanel*)> handler) {
        auto details = plain(dialog_buttons::ok_cancel);
        const auto button = create_push_button_control();
        button->set_on_click(std::move(handler));
        details.content = client_test::fixed(button, body.cx, body.cy);
        details.on_created = [button] { button->set_text(L"go"); };
        return details;
    }

    static inline std::optional<d2d::factory> graphics;
    std::optional<client_test::owner_window> owner;
    int em = 0;
    LONG button_height = 0;  // on the scene
};

INSTANTIATE_TEST_SUITE_P(forms, dialog, testing::ValuesIn(client_test::all_forms),
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
    for (const auto& [number, first, second, golden] : cases) {
        SCOPED_TRACE(number);
        const auto details = plain(static_cast<dialog_buttons>(number));
        const auto look = [&](HWND window) {
            if (GetParam() == form::native) return;    // whose buttons are found by their texts
            test_support::move_mouse(window, {2, 2});  // off all buttons
            constexpr test_support::tolerance fonts{.channel = 24, .pixels = 60};
            EXPECT_TRUE(client_test::onlooker(window).shows_golden(golden, fonts));
        };
        if (first) {
            EXPECT_TRUE(show(details, [&](HWND window) {
                look(window);
                press(window, first, second);
            }));
        }
        if (second) {
            EXPECT_FALSE(show(details, [&](HWND window) {
                if (!first) look(window);
                press(window, second);
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
    for (const auto& [message, parameter] : ways) {
        SCOPED_TRACE(message);
        std::vector<bool> asked;
        auto details = plain(dialog_buttons::ok_cancel);
        details.on_result = [&](bool result) {
            asked.push_back(result);
            return true;
        };
        EXPECT_FALSE(show(details, [&](HWND window) { PostMessageW(window, message, parameter, 0); }));
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

TEST_P(dialog, lets_what_is_thrown_pass_with_the_owner_enabled_and_the_window_gone) {
    auto details = plain(dialog_buttons::ok);
    details.on_created = [] { throw std::runtime_error("created"); };
    EXPECT_THAT([&] { static_cast<void>(show(owner->handle(), details)); },
                ThrowsMessage<std::runtime_error>("created"));
    EXPECT_EQ(owner->owned(), 0);
    EXPECT_EQ(owner->changes(), 0);
    details.on_created = {};
    details.on_result = [](bool) -> bool { throw std::runtime_error("result"); };
    EXPECT_THAT([&] { show(details, [&](HWND window) { press(window, L"OK"); }); },
                ThrowsMessage<std::runtime_error>("result"));
    EXPECT_EQ(owner->owned(), 0);
    EXPECT_TRUE(IsWindowEnabled(owner->handle()));
    const auto thrower = with_button([](IPanel*) { throw std::runtime_error("click"); });
    EXPECT_THAT([&] { show(thrower, [&](HWND window) { press_body(window); }); },
                ThrowsMessage<std::runtime_error>("click"));
    EXPECT_EQ(owner->owned(), 0);
    EXPECT_TRUE(IsWindowEnabled(owner->handle()));
    EXPECT_EQ(owner->changes(), 4);
}

TEST_P(dialog, shows_a_further_dialog_above_itself) {
    bool inner_result = false;
    std::atomic<bool> inner_is_done = false;
    const auto outer = with_button([&](IPanel* panel) {
        com::ptr<IModalService> service;
        ASSERT_EQ(panel->QueryService(com::guid_of<IModalService>(), com::guid_of<IModalService>(),
                                      service.put_void()),
                  S_OK);
        inner_result = service->showDialog(plain(dialog_buttons::yes_no));
        inner_is_done = true;
    });
    EXPECT_FALSE(show(outer, [&](HWND window) {
        press_body(window);
        const HWND inner = shown_above(window);
        EXPECT_FALSE(IsWindowEnabled(owner->handle()));
        press(inner, L"Yes", L"No");
        expect_soon([&] { return inner_is_done.load(); }, "an end of the inner dialog");
        expect_soon([&] { return GetForegroundWindow() == window; }, "the outer dialog in front");
        EXPECT_TRUE(IsWindowEnabled(window));
        EXPECT_FALSE(IsWindowEnabled(owner->handle()));
        press(window, L"Cancel");
    }));
    EXPECT_TRUE(inner_result);
    EXPECT_EQ(GetForegroundWindow(), owner->handle());
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

TEST_P(dialog, ends_with_the_program_which_is_not_told_again) {
    int asked = 0;
    auto details = plain(dialog_buttons::ok_cancel);
    details.on_result = [&](bool) {
        ++asked;
        return true;
    };
    const auto quit_caller = [caller = GetCurrentThreadId()](HWND) {
        PostThreadMessageW(caller, WM_QUIT, 7, 0);
    };
    EXPECT_FALSE(show(details, quit_caller));
    MSG message{};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
    const auto quitter = with_button([](IPanel*) { PostQuitMessage(7); });
    EXPECT_FALSE(show(quitter, [&](HWND window) { press_body(window); }));
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
    EXPECT_EQ(asked, 0);
}

}  // namespace
