// Dialogs above dialogs, and what ends them before their time; in both forms of their controls.

#include "dialog_test.h"
#include "ui/mossHarbour/IOptionControl.h"
#include "win32/error.h"

#include <gmock/gmock.h>

#include <atomic>
#include <stdexcept>

namespace {

using namespace ui::mossHarbour;
using client_test::expect_soon;
using client_test::form;
using testing::ThrowsMessage;

class ended_dialog : public client_test::dialog_test {
protected:
    /// The handler of a button: shows a further dialog above the one that it is in.
    template <class Shown>
    static std::function<void(IPanel*)> shows(Shown shown) {
        return [shown](IPanel* panel) {
            com::ptr<IModalService> service;
            ASSERT_EQ(panel->QueryService(com::guid_of<IModalService>(), com::guid_of<IModalService>(),
                                          service.put_void()),
                      S_OK);
            shown(*service);
        };
    }
    static bool quit_is_waiting() {
        MSG message{};
        return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
    }
};

INSTANTIATE_TEST_SUITE_P(forms, ended_dialog, testing::ValuesIn(client_test::all_forms),
                         client_test::name_of<testing::TestParamInfo<form>>);

TEST_P(ended_dialog, lets_what_is_thrown_pass_with_the_owner_enabled_and_the_window_gone) {
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

TEST_P(ended_dialog, shows_a_further_dialog_above_itself) {
    bool inner_result = false;
    std::atomic<bool> inner_is_done = false;
    const auto outer = with_button(shows([&](IModalService& service) {
        inner_result = service.showDialog(plain(dialog_buttons::yes_no));
        inner_is_done = true;
    }));
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

TEST_P(ended_dialog, ends_with_the_program_which_is_not_told_again) {
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
    EXPECT_FALSE(quit_is_waiting());
    const auto quitter = with_button([](IPanel*) { PostQuitMessage(7); });
    EXPECT_FALSE(show(quitter, [&](HWND window) { press_body(window); }));
    EXPECT_FALSE(quit_is_waiting());
    EXPECT_EQ(asked, 0);
}

TEST_P(ended_dialog, lets_what_is_thrown_above_it_pass_through_both) {
    HWND outer_window = nullptr;
    const auto thrower = with_button([](IPanel*) { throw std::runtime_error("click"); });
    const auto outer = with_button(shows([&](IModalService& service) { service.showDialog(thrower); }));
    EXPECT_THAT(
        [&] {
            show(outer, [&](HWND window) {
                outer_window = window;
                press_body(window);
                press_body(shown_above(window));
            });
        },
        ThrowsMessage<std::runtime_error>("click"));
    EXPECT_FALSE(IsWindow(outer_window));
}

TEST_P(ended_dialog, goes_on_when_the_one_above_it_has_taken_the_end_of_the_program) {
    std::atomic<bool> inner_is_done = false;
    const auto outer = with_button(shows([&](IModalService& service) {
        EXPECT_FALSE(service.showDialog(plain(dialog_buttons::ok)));
        inner_is_done = true;
    }));
    EXPECT_TRUE(show(outer, [&, caller = GetCurrentThreadId()](HWND window) {
        press_body(window);
        static_cast<void>(shown_above(window));
        PostThreadMessageW(caller, WM_QUIT, 7, 0);
        expect_soon([&] { return inner_is_done.load(); }, "an end of the inner dialog");
        EXPECT_TRUE(IsWindowVisible(window));
        press(window, L"OK", L"Cancel");
    }));
}

TEST_P(ended_dialog, stays_when_a_handler_takes_its_content_out) {
    std::atomic<bool> is_empty = false;
    auto emptied = with_button([&](IPanel* panel) {
        panel->set_content(nullptr);
        is_empty = true;
    });
    bool result = true;
    emptied.on_result = [&](bool told) {
        result = told;
        return true;
    };
    EXPECT_FALSE(show(emptied, [&](HWND window) {
        press_body(window);
        expect_soon([&] { return is_empty.load(); }, "a click");
        SetWindowPos(window, nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        PostMessageW(window, WM_CLOSE, 0, 0);
    }));
    EXPECT_FALSE(result);
}

TEST_P(ended_dialog, shows_one_description_again_and_in_the_other_form) {
    std::atomic<int> pressed = 0;
    const auto details = with_button([&](IPanel*) { ++pressed; });
    int shown = 0;
    for (const bool on_scene : {true, false, true}) {
        ++shown;
        client_test::while_shown(
            [&] {
                const HWND window = shown_above(owner->handle());
                if (on_scene) {
                    test_support::click(window, {em + 10, em + 10});
                } else {
                    test_support::click(client_test::child_window(window, L"BUTTON", L"go"), {4, 4});
                }
                expect_soon([&] { return pressed == shown; }, "a click");
                PostMessageW(window, WM_CLOSE, 0, 0);
            },
            [&] { EXPECT_FALSE(showDialogHwnd(owner->handle(), on_scene, details)); });
    }
    EXPECT_EQ(pressed, 3);
}

TEST_P(ended_dialog, is_not_shown_with_a_control_that_has_no_form) {
    const auto option = create_option_control();
    auto details = plain(dialog_buttons::ok);
    details.content = option;
    int selected = -1;
    details.on_created = [&] {
        option->add_option(L"port");
        option->add_option(L"starboard");
        option->select_option(1);
    };
    details.on_result = [&](bool) {
        selected = option->get_selection();
        return true;
    };
    if (GetParam() == form::scene) {
        EXPECT_THAT([&] { static_cast<void>(show(owner->handle(), details)); },
                    ThrowsMessage<std::runtime_error>("Unable to materialized the specified element!"));
        EXPECT_EQ(owner->changes(), 0);
    } else {
        EXPECT_FALSE(show(details, [](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }));
        EXPECT_EQ(selected, 1);
    }
}

TEST_P(ended_dialog, is_not_shown_above_a_window_that_is_gone) {
    HWND gone = nullptr;
    {
        const client_test::owner_window former;
        gone = former.handle();
    }
    test_support::bring_to_front(owner->handle());
    if (GetParam() == form::scene) {
        EXPECT_THROW(static_cast<void>(show(gone, plain(dialog_buttons::ok))), win32::error);
    } else {
        EXPECT_THAT([&] { static_cast<void>(show(gone, plain(dialog_buttons::ok))); },
                    ThrowsMessage<std::runtime_error>("failed to create window!"));
    }
}

}  // namespace
