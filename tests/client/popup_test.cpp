// Popups, in both forms of their controls, driven by real input.

#include "d2d/factory.h"
#include "modal_call.h"
#include "portable_forms.h"
#include "support/input.h"
#include "support/leak_checked_test.h"
#include "ui/mossHarbour/IHwndPanel.h"
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
using popup_details = IModalService::popup_details;

constexpr SIZE body{120, 61};
constexpr RECT anchor{401, 300, 500, 333};

class popup : public test_support::leak_checked_test, public testing::WithParamInterface<form> {
protected:
    static void SetUpTestSuite() { graphics.emplace(); }
    static void TearDownTestSuite() { graphics.reset(); }
    void SetUp() override {
        leak_checked_test::SetUp();
        owner.emplace();
    }
    void TearDown() override {
        EXPECT_EQ(owner->changes(), 0);  // neither disabled nor enabled
        EXPECT_EQ(owner->owned(), 0);
        owner.reset();
        leak_checked_test::TearDown();
    }

    /// With a button that has the text "go".
    [[nodiscard]] static popup_details plain(std::function<void(IPanel*)> handler = {}) {
        const auto button = create_push_button_control();
        button->set_on_click(std::move(handler));
        return {client_test::fixed(button, body.cx, body.cy),
                [button] { button->set_text(L"go"); },
                {},
                anchor,
                popup_side::below,
                popup_alignment::near_edges};
    }
    [[nodiscard]] bool show(const popup_details& details) const {
        return GetParam() == form::scene ? showPopupHwnd(owner->handle(), true, details)
                                         : showPopupHwnd(owner->handle(), details);
    }
    /// Shows a popup while `actions(its window)` run.
    template <class Actions>
    bool show(const popup_details& details, Actions&& actions) {
        bool result = true;
        while_shown([&] { actions(window_above(owner->handle())); }, [&] { result = show(details); });
        return result;
    }
    void press_button(HWND window, POINT place = {20, 20}) const {
        const HWND pressed = GetParam() == form::scene ? window : child_window(window, L"BUTTON", L"go");
        test_support::click(pressed, place);
    }
    /// Presses the owner beside the popup, which takes the focus there.
    void leave(HWND) const { test_support::click(owner->handle(), {500, 380}); }

    static inline std::optional<d2d::factory> graphics;
    std::optional<client_test::owner_window> owner;
};

INSTANTIATE_TEST_SUITE_P(forms, popup, testing::ValuesIn(client_test::all_forms),
                         client_test::name_of<testing::TestParamInfo<form>>);

struct place_case {
    popup_side side;
    popup_alignment align;
    POINT place;
};

TEST_P(popup, stands_beside_its_anchor) {
    // A border of one pixel and a padding of two are on each side.
    constexpr SIZE size{body.cx + 6, body.cy + 6};
    const place_case cases[] = {
        {popup_side::left, popup_alignment::far_edges, {anchor.left - size.cx, anchor.bottom - size.cy}},
        {popup_side::right, popup_alignment::far_edges, {anchor.right, anchor.bottom - size.cy}},
        {popup_side::right, popup_alignment::centres, {anchor.right, 316 - 33}},
        {popup_side::below, popup_alignment::near_edges, {anchor.left, anchor.bottom}},
        {popup_side::below, popup_alignment::centres, {450 - 63, anchor.bottom}},
        {popup_side::above, popup_alignment::far_edges, {anchor.right - size.cx, anchor.top - size.cy}}};
    for (const auto& [side, align, expected] : cases) {
        auto details = plain();
        details.side = side;
        details.align = align;
        RECT place{};
        LONG style = 0;
        LONG ex_style = 0;
        wchar_t title[20] = L"unknown";
        EXPECT_FALSE(show(details, [&](HWND window) {
            GetWindowRect(window, &place);
            style = GetWindowLongW(window, GWL_STYLE);
            ex_style = GetWindowLongW(window, GWL_EXSTYLE);
            GetWindowTextW(window, title, 20);
            leave(window);
        }));
        EXPECT_EQ(ex_style, 0);
        EXPECT_STREQ(title, L"");
        EXPECT_EQ(place.left, expected.x);
        EXPECT_EQ(place.top, expected.y);
        EXPECT_EQ(place.right - place.left, size.cx);
        EXPECT_EQ(place.bottom - place.top, size.cy);
        EXPECT_EQ(style & ~(WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS),
                  static_cast<LONG>(WS_POPUP | WS_BORDER | WS_SYSMENU));
    }
}

TEST_P(popup, tells_when_it_is_created_and_when_it_has_lost_the_focus) {
    std::vector<bool> told;
    bool created = false;
    HWND window = nullptr;
    const auto button = create_push_button_control();
    auto details = plain();
    details.content = client_test::fixed(button, body.cx, body.cy);
    details.on_created = [&] {
        button->set_text(L"go");
        created = true;
        EXPECT_EQ(owner->owned(), 1);
        EXPECT_EQ(GetForegroundWindow(), owner->handle());
    };
    details.on_result = [&](bool result) {
        told.push_back(result);
        EXPECT_TRUE(IsWindow(window));
        EXPECT_FALSE(IsWindowVisible(window));
        button->set_text(L"gone");  // the controls are there still
    };
    EXPECT_FALSE(show(details, [&](HWND shown) {
        window = shown;
        leave(shown);
    }));
    EXPECT_TRUE(created);
    EXPECT_THAT(told, ElementsAre(false));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THROW(button->set_text(L""), std::logic_error);
}

TEST_P(popup, serves_its_controls_until_one_gives_the_focus_away) {
    std::atomic<int> pressed = 0;
    const auto details = plain([&](IPanel*) {
        if (++pressed == 2) SetFocus(owner->handle());
    });
    EXPECT_FALSE(show(details, [&](HWND window) {
        press_button(window);
        expect_soon([&] { return pressed == 1; }, "a click");
        EXPECT_TRUE(IsWindowVisible(window));
        press_button(window, {70, 40});  // too far away for a double click
    }));
    EXPECT_EQ(pressed, 2);
}

TEST_P(popup, stays_without_a_control_that_could_have_the_focus) {
    auto details = plain();
    details.content = client_test::blank(body.cx, body.cy);
    details.on_created = {};
    EXPECT_FALSE(show(details, [&](HWND window) {
        SendMessageW(window, WM_NULL, 0, 0);  // back when the loop has run
        EXPECT_TRUE(IsWindowVisible(window));
        leave(window);
    }));
}

TEST_P(popup, lets_what_is_thrown_pass_with_its_window_gone) {
    auto details = plain();
    details.on_created = [] { throw std::runtime_error("created"); };
    EXPECT_THAT([&] { static_cast<void>(show(details)); }, ThrowsMessage<std::runtime_error>("created"));
    EXPECT_EQ(owner->owned(), 0);
    details.on_created = {};
    details.on_result = [](bool) { throw std::runtime_error("result"); };
    EXPECT_THAT([&] { show(details, [&](HWND window) { leave(window); }); },
                ThrowsMessage<std::runtime_error>("result"));
    EXPECT_EQ(owner->owned(), 0);
    const auto thrower = plain([](IPanel*) { throw std::runtime_error("click"); });
    EXPECT_THAT([&] { show(thrower, [&](HWND window) { press_button(window); }); },
                ThrowsMessage<std::runtime_error>("click"));
}

TEST_P(popup, wants_a_proper_size) {
    const SIZE bodies[] = {{unbounded_extent, 10}, {10, unbounded_extent}, {0x4000, 10}, {-6, 10}, {10, -6}};
    for (const auto& [width, height] : bodies) {
        auto details = plain();
        details.content = client_test::blank(width, height);
        details.on_created = {};
        EXPECT_THAT([&] { static_cast<void>(show(details)); },
                    ThrowsMessage<std::logic_error>("Dialog layout resulted in an invalid size!"))
            << width << " x " << height;
    }
}

TEST_P(popup, ends_with_the_program_which_is_not_told_again) {
    std::vector<bool> told;
    auto details = plain();
    details.on_result = [&](bool result) { told.push_back(result); };
    EXPECT_FALSE(
        show(details, [caller = GetCurrentThreadId()](HWND) { PostThreadMessageW(caller, WM_QUIT, 7, 0); }));
    MSG message{};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
    EXPECT_THAT(told, ElementsAre(false));
}

TEST_P(popup, ends_when_its_window_is_destroyed) {
    const auto details =
        plain([](IPanel* panel) { DestroyWindow(com::ptr<IHwndPanel>(panel)->get_window_handle()); });
    EXPECT_FALSE(show(details, [&](HWND window) { press_button(window); }));
}

TEST_P(popup, shows_a_further_popup_beside_itself) {
    std::atomic<bool> inner_is_done = false;
    const auto details = plain([&](IPanel* panel) {
        com::ptr<IModalService> service;
        ASSERT_EQ(panel->QueryService(com::guid_of<IModalService>(), com::guid_of<IModalService>(),
                                      service.put_void()),
                  S_OK);
        auto inner = plain();
        inner.side = popup_side::right;
        EXPECT_FALSE(service->showPopup(inner));
        inner_is_done = true;
    });
    EXPECT_FALSE(show(details, [&](HWND window) {
        press_button(window);
        const HWND inner = window_above(window);
        RECT place{};
        GetWindowRect(inner, &place);
        EXPECT_EQ(place.left, anchor.right);
        EXPECT_EQ(place.top, anchor.top);
        leave(inner);
        expect_soon([&] { return inner_is_done.load(); }, "an end of the inner popup");
    }));
}

}  // namespace
