// How dialogs come up and go, in both forms of their controls: without input, seen from within.

#include "dialog_test.h"
#include "support/sent_messages.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/ILabelControl.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using namespace ui::mossHarbour;
using client_test::form;
using testing::ElementsAre;

class seen_dialog : public client_test::dialog_test {
protected:
    /// Shows a dialog that ends by itself, and calls `look(its window)` once it stands.
    template <class Look>
    void show_and_look(dialog_details details, Look&& look) {
        events.clear();
        details.on_created = [created = details.on_created] {
            if (created) created();
            PostQuitMessage(0);
        };
        HWND window = nullptr;
        const test_support::sent_messages messages([&](const CWPSTRUCT& sent) {
            if (sent.hwnd == owner->handle() && sent.message == WM_ENABLE) {
                events.emplace_back(sent.wParam ? "owner enabled" : "owner disabled");
                if (!sent.wParam) look(window);
            }
            if (GetWindow(sent.hwnd, GW_OWNER) != owner->handle()) return;
            if (sent.message == WM_SHOWWINDOW) {
                window = sent.hwnd;
                events.emplace_back(sent.wParam ? "shown" : "hidden");
            }
            if (sent.message == WM_DESTROY) events.emplace_back("destroyed");
        });
        EXPECT_FALSE(show(owner->handle(), details));
    }

    [[nodiscard]] static SIZE client_size(HWND window) {
        RECT client{};
        GetClientRect(window, &client);
        return {client.right, client.bottom};
    }
    /// Of a native button, in the dialog's client area.
    [[nodiscard]] static RECT place_of(HWND dialog, const wchar_t* text) {
        const HWND button = FindWindowExW(dialog, nullptr, L"BUTTON", text);
        EXPECT_NE(button, nullptr);
        RECT place{};
        GetWindowRect(button, &place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }

    std::vector<std::string> events;
};

INSTANTIATE_TEST_SUITE_P(forms, seen_dialog, testing::ValuesIn(client_test::all_forms),
                         client_test::name_of<testing::TestParamInfo<form>>);

TEST_P(seen_dialog, disables_its_owner_behind_its_show_and_enables_it_ahead_of_its_end) {
    bool is_visible = false;
    show_and_look(plain(dialog_buttons::ok),
                  [&](HWND window) { is_visible = IsWindowVisible(window) != FALSE; });
    EXPECT_TRUE(is_visible);
    EXPECT_THAT(events, ElementsAre("shown", "owner disabled", "owner enabled", "hidden", "destroyed"));
}

TEST_P(seen_dialog, is_as_wide_as_the_texts_that_it_is_given_when_it_is_created) {
    const auto label = create_label_control();
    std::vector<LONG> widths;
    for (const wchar_t* const text : {L"a text that is wider than two buttons are, by far",
                                      L"a text that is wider than two buttons are, by far, and by more"}) {
        auto details = plain(dialog_buttons::ok_cancel);
        details.content = label;
        details.on_created = [&] { label->set_text(text); };
        show_and_look(details, [&](HWND window) { widths.push_back(client_size(window).cx); });
    }
    EXPECT_GT(widths.at(0), 14 * em);
    EXPECT_GT(widths.at(1), widths.at(0) + em);
}

TEST_P(seen_dialog, has_a_plain_frame) {
    LONG ex_style = 0;
    show_and_look(plain(dialog_buttons::ok), [&](HWND w) { ex_style = GetWindowLongW(w, GWL_EXSTYLE); });
    EXPECT_EQ(ex_style, LONG{WS_EX_WINDOWEDGE});  // which goes with a caption
}

TEST_P(seen_dialog, cannot_be_sized_where_its_content_cannot) {
    auto details = plain(dialog_buttons::ok_cancel);
    details.content = client_test::blank(30 * em, body.cy);
    RECT place{};
    MINMAXINFO limits{};
    show_and_look(details, [&](HWND window) {
        GetWindowRect(window, &place);
        SendMessageW(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    });
    for (const POINT& limit : {limits.ptMinTrackSize, limits.ptMaxTrackSize}) {
        EXPECT_EQ(limit.x, place.right - place.left);
        EXPECT_EQ(limit.y, place.bottom - place.top);
    }
}

/// Whose buttons are windows.
class seen_native_dialog : public seen_dialog {
protected:
    struct two_buttons {
        RECT yes;
        RECT no;
        SIZE client;
    };

    two_buttons look_at_yes_and_no(const com::ptr<ILayout>& content) {
        auto details = plain(dialog_buttons::yes_no);
        details.content = content;
        two_buttons seen{};
        show_and_look(details, [&](HWND window) {
            seen = {place_of(window, L"Yes"), place_of(window, L"No"), client_size(window)};
        });
        return seen;
    }
};

INSTANTIATE_TEST_SUITE_P(forms, seen_native_dialog, testing::Values(form::native),
                         client_test::name_of<testing::TestParamInfo<form>>);

TEST_P(seen_native_dialog, has_its_buttons_six_lines_wide_in_the_lower_right_corner) {
    auto details = plain(dialog_buttons::ok);
    details.content = client_test::blank(30 * em, body.cy);
    RECT ok{};
    SIZE client{};
    show_and_look(details, [&](HWND window) {
        ok = place_of(window, L"OK");
        client = client_size(window);
    });
    EXPECT_EQ(client.cx, 30 * em + 2 * em);
    EXPECT_EQ(ok.right, client.cx - em);
    EXPECT_EQ(ok.left, client.cx - em - 6 * em);
    EXPECT_EQ(ok.bottom, client.cy - em);
    EXPECT_EQ(ok.top, client.cy - em - (em + 8));
    EXPECT_EQ(ok.top, em + body.cy + em / 2);
}

TEST_P(seen_native_dialog, keeps_half_a_line_between_its_buttons) {
    const auto [yes, no, client] = look_at_yes_and_no(client_test::blank(30 * em, body.cy));
    EXPECT_EQ(yes.left, client.cx - em - 2 * 6 * em - em / 2);
    EXPECT_EQ(no.left - yes.right, em / 2);
    EXPECT_THAT(no.right, testing::AllOf(testing::Gt(client.cx - em - 4), testing::Le(client.cx - em)));
    for (const RECT& button : {yes, no}) {
        EXPECT_EQ(button.top, client.cy - em - (em + 8));
        EXPECT_EQ(button.bottom, client.cy - em);
    }
}

TEST_P(seen_native_dialog, has_a_narrow_content_in_the_middle_above_its_buttons) {
    const auto button = create_push_button_control();
    auto details = plain(dialog_buttons::ok_cancel);
    details.content = client_test::fixed(button, 20, 30);
    details.on_created = [&] { button->set_text(L"go"); };
    RECT content{};
    SIZE client{};
    show_and_look(details, [&](HWND window) {
        content = place_of(window, L"go");
        client = client_size(window);
    });
    const LONG room = client.cx - 2 * em;
    EXPECT_GT(room, 20);
    EXPECT_EQ(content.left, em + (room - 20) / 2);
    EXPECT_EQ(content.right, content.left + 20);
    EXPECT_EQ(content.top, em);
    EXPECT_EQ(content.bottom, em + 30);
}

TEST_P(seen_native_dialog, leaves_nothing_in_a_panel_that_somebody_keeps) {
    com::ptr<IPanel> kept;
    const auto details = with_button([&](IPanel* panel) { kept = panel; });
    show_and_look(details, [&](HWND window) {
        const HWND button = FindWindowExW(window, nullptr, L"BUTTON", L"go");
        SendMessageW(window, WM_COMMAND, MAKEWPARAM(0, BN_CLICKED), reinterpret_cast<LPARAM>(button));
    });
    ASSERT_TRUE(kept);
    EXPECT_FALSE(kept->set_content(nullptr));
    EXPECT_EQ(com::ptr<IHwndPanel>(kept.get())->get_window_handle(), nullptr);
}

TEST_P(seen_native_dialog, gives_buttons_less_where_its_content_is_narrow) {
    const auto [yes, no, client] = look_at_yes_and_no(client_test::blank(1, 1));
    EXPECT_EQ(yes.left, em);
    EXPECT_EQ(no.left - yes.right, em / 2);
    EXPECT_EQ(no.right, client.cx - em);
    EXPECT_LT(yes.right - yes.left, 6 * em);
}

}  // namespace
