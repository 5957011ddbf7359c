#pragma once

#include "d2d/factory.h"
#include "modal_call.h"
#include "portable_forms.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "ui/mossHarbour/IModalService.h"
#include "ui/mossHarbour/IPushButtonControl.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace client_test {

/// Shows dialogs in one form of their controls above a window, which each test leaves as it found it.
class dialog_test : public test_support::leak_checked_test, public testing::WithParamInterface<form> {
protected:
    using dialog_details = ui::mossHarbour::IModalService::dialog_details;
    using dialog_buttons = ui::mossHarbour::dialog_buttons;

    static constexpr SIZE body{200, 60};

    static void SetUpTestSuite() { graphics.emplace(); }
    static void TearDownTestSuite() { graphics.reset(); }
    void SetUp() override {
        leak_checked_test::SetUp();
        owner.emplace();
        em = font_height();
        button_height = scene_button_size(L"OK").cy;
    }
    void TearDown() override {
        EXPECT_TRUE(IsWindowEnabled(owner->handle()));
        EXPECT_EQ(owner->owned(), 0);
        owner.reset();
        leak_checked_test::TearDown();
    }

    [[nodiscard]] static dialog_details plain(dialog_buttons buttons) {
        return {blank(body.cx, body.cy), {}, {}, L"dialog", buttons};
    }
    [[nodiscard]] bool show(HWND above, const dialog_details& details) const {
        return GetParam() == form::scene ? ui::mossHarbour::showDialogHwnd(above, true, details)
                                         : ui::mossHarbour::showDialogHwnd(above, details);
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
    [[nodiscard]] static dialog_details with_button(std::function<void(ui::mossHarbour::IPanel*)> handler) {
        auto details = plain(dialog_buttons::ok_cancel);
        const auto button = ui::mossHarbour::create_push_button_control();
        button->set_on_click(std::move(handler));
        details.content = fixed(button, body.cx, body.cy);
        details.on_created = [button] { button->set_text(L"go"); };
        return details;
    }

    static inline std::optional<d2d::factory> graphics;
    std::optional<owner_window> owner;
    int em = 0;
    LONG button_height = 0;  // on the scene
};

}  // namespace client_test
