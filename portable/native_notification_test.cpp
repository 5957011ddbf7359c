// The road of notifications: from a control's window by its parent to the client's handler.

#include "portable/testing/every_kind.h"
#include "portable/testing/native_panel_fixture.h"

#include <future>
#include <optional>
#include <stdexcept>
#include <thread>

#include <commctrl.h>

namespace ui::mossHarbour {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class native_notification : public native_panel_fixture {
protected:
    void SetUp() override {
        native_panel_fixture::SetUp();
        edit = create_edit_control();
        option = create_option_control();
        check_box = create_check_box_control();
        radio = create_radio_button_control(true);
        button = create_push_button_control();
        edit->set_on_changed([this](IPanel* in) { note("edit", in); });
        option->set_on_selection_changed([this](IPanel* in) { note("option", in); });
        check_box->set_on_toggled([this](IPanel* in, bool on) { note(on ? "checked" : "unchecked", in); });
        radio->set_on_click([this](IPanel* in) { note("radio", in); });
        button->set_on_click([this](IPanel* in) { note("button", in); });
    }
    void TearDown() override {
        panel->destroy_window();
        panel->set_content(nullptr);
        edit.reset();
        option.reset();
        check_box.reset();
        radio.reset();
        button.reset();
        native_panel_fixture::TearDown();
    }

    void note(std::string event, IPanel* in) {
        EXPECT_EQ(in, panel.get());
        events.push_back(std::move(event));
    }

    static LRESULT command(HWND told, HWND from, WORD code) {
        return SendMessageW(told, WM_COMMAND, MAKEWPARAM(0, code), reinterpret_cast<LPARAM>(from));
    }

    com::ptr<IEditControl> edit;
    com::ptr<IOptionControl> option;
    com::ptr<ICheckBoxControl> check_box;
    com::ptr<IRadioButtonControl> radio;
    com::ptr<IPushButtonControl> button;
    std::vector<std::string> events;
};

struct code_case {
    std::size_t control;
    WORD code;
    const char* event;  // null where the code is not handled
};

TEST_F(native_notification, is_handled_for_one_code_of_each_kind) {
    const auto windows =
        show({edit, option, check_box, radio, button, create_label_control(), create_group_box_control()});
    ASSERT_EQ(windows.size(), 7u);
    const code_case cases[] = {{0, EN_CHANGE, "edit"},
                               {0, EN_UPDATE, nullptr},
                               {0, EN_SETFOCUS, nullptr},
                               {0, 0, nullptr},
                               {0, 1, nullptr},
                               {1, CBN_SELCHANGE, "option"},
                               {1, CBN_DBLCLK, nullptr},
                               {1, CBN_SELENDOK, nullptr},
                               {1, 0, nullptr},
                               {1, EN_CHANGE, nullptr},
                               {2, BN_CLICKED, "unchecked"},
                               {2, BN_DOUBLECLICKED, nullptr},
                               {2, BN_SETFOCUS, nullptr},
                               {3, BN_CLICKED, "radio"},
                               {3, BN_DOUBLECLICKED, nullptr},
                               {4, BN_CLICKED, "button"},
                               {4, BN_KILLFOCUS, nullptr},
                               {4, 1, nullptr},
                               {5, STN_CLICKED, nullptr},
                               {6, BN_CLICKED, nullptr}};
    for (const auto& [control, code, event] : cases) {
        events.clear();
        const auto lparam = reinterpret_cast<LPARAM>(windows[control]);
        const auto result = route_notification(WM_COMMAND, MAKEWPARAM(17, code), lparam);
        EXPECT_EQ(result, event ? std::optional<LRESULT>(0) : std::nullopt) << control << " " << code;
        EXPECT_EQ(events, event ? std::vector<std::string>{event} : std::vector<std::string>())
            << control << " " << code;
    }
}

TEST_F(native_notification, of_a_check_box_carries_its_new_state) {
    const HWND window = show({check_box}).front();
    SendMessageW(window, BM_SETCHECK, BST_CHECKED, 0);
    command(panel->get_window_handle(), window, BN_CLICKED);
    check_box->set_checked(false);
    command(panel->get_window_handle(), window, BN_CLICKED);
    EXPECT_THAT(events, ElementsAre("checked", "unchecked"));
}

TEST_F(native_notification, takes_the_road_through_group_boxes) {
    const auto inner = create_group_box_control();
    const auto outer = create_group_box_control();
    inner->set_content(stack_of({button}));
    outer->set_content(stack_of({edit, inner}));
    const HWND outer_window = show({outer}).front();
    const auto within = children_of(outer_window);
    ASSERT_EQ(within.size(), 2u);
    const auto innermost = children_of(within[1]);
    ASSERT_EQ(innermost.size(), 1u);
    SendMessageW(within[0], WM_CHAR, L'x', 0);
    SendMessageW(innermost[0], BM_SETSTATE, TRUE, 0);
    EXPECT_EQ(command(within[1], innermost[0], BN_CLICKED), 0);
    EXPECT_THAT(events, ElementsAre("edit", "button"));
}

TEST_F(native_notification, without_a_control_is_not_handled) {
    show({button});
    const HWND window = panel->get_window_handle();
    EXPECT_FALSE(route_notification(WM_COMMAND, MAKEWPARAM(0, BN_CLICKED), 0));
    EXPECT_FALSE(route_notification(WM_COMMAND, 0, reinterpret_cast<LPARAM>(window)));
    EXPECT_FALSE(route_notification(WM_COMMAND, 0, reinterpret_cast<LPARAM>(GetDesktopWindow())));
    EXPECT_FALSE(route_notification(WM_NOTIFY, 0, 0));
    NMHDR notification{nullptr, 0, static_cast<UINT>(NM_CLICK)};
    EXPECT_FALSE(route_notification(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification)));
    EXPECT_EQ(command(window, nullptr, BN_CLICKED), 0);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(native_notification, of_a_client_s_own_window_is_left_alone) {
    show({button});
    const HWND window = panel->get_window_handle();
    const HWND own =
        CreateWindowExW(0, L"BUTTON", nullptr, WS_CHILD, 0, 0, 10, 10, window, nullptr, nullptr, nullptr);
    int user_data = 0;
    SetWindowLongPtrW(own, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&user_data));
    EXPECT_EQ(command(window, own, BN_CLICKED), 0);
    NMHDR notification{own, 0, static_cast<UINT>(NM_CLICK)};
    SendMessageW(window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    EXPECT_THAT(events, IsEmpty());
    DestroyWindow(own);
}

TEST_F(native_notification, of_another_thread_s_control_is_not_handled) {
    std::promise<HWND> shown;
    std::promise<void> seen;
    std::thread other([&] {
        const auto theirs = create_win32_hwnd_panel(nullptr);
        const auto pressed = create_push_button_control();
        pressed->set_on_click([](IPanel*) { ADD_FAILURE() << "pressed from another thread"; });
        theirs->set_content(stack_of({pressed}));
        shown.set_value(children_of(theirs->create_window(0, L"theirs", WS_POPUP, nullptr)).front());
        seen.get_future().wait();
        theirs->destroy_window();
    });
    const HWND window = shown.get_future().get();
    EXPECT_EQ(widget_of(window), nullptr);
    EXPECT_FALSE(route_notification(WM_COMMAND, 0, reinterpret_cast<LPARAM>(window)));
    seen.set_value();
    other.join();
}

TEST_F(native_notification, by_notify_message_is_for_lists_alone) {
    for (const auto& [element, kind, style, ex_style] : every_kind()) {
        NMITEMACTIVATE notification{};
        notification.hdr = {show({element}).front(), 0, static_cast<UINT>(NM_CLICK)};
        const auto result = route_notification(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
        EXPECT_EQ(result.has_value(), kind == WC_LISTVIEWW) << kind;
    }
}

// -- what handlers may do
// -------------------------------------------------------------------------------------

TEST_F(native_notification, may_set_the_text_that_has_changed) {
    const HWND window = show({edit}).front();
    edit->set_on_changed([&](IPanel* in) {
        note("changed", in);
        edit->set_text(L"corrected");
    });
    SendMessageW(window, WM_CHAR, L'x', 0);
    SendMessageW(window, WM_CHAR, L'y', 0);
    EXPECT_THAT(events, ElementsAre("changed", "changed"));
    EXPECT_EQ(text_of_window(window), L"corrected");
}

TEST_F(native_notification, lets_pass_what_a_handler_throws) {
    const auto group = create_group_box_control();
    group->set_content(stack_of({button}));
    const HWND group_window = show({group, radio}).front();
    const HWND pressed = children_of(group_window).front();
    button->set_on_click([](IPanel*) { throw std::runtime_error("by the handler"); });
    EXPECT_THAT([&] { command(group_window, pressed, BN_CLICKED); },
                testing::ThrowsMessage<std::runtime_error>("by the handler"));
    button->set_on_click([this](IPanel* in) { note("button", in); });
    command(group_window, pressed, BN_CLICKED);
    EXPECT_THAT(events, ElementsAre("button"));
}

TEST_F(native_notification, may_replace_its_own_handler) {
    const HWND window = show({button}).front();
    button->set_on_click([&, first = std::string("first")](IPanel* in) {
        button->set_on_click([this](IPanel* then) { note("second", then); });
        note(first, in);
    });
    command(panel->get_window_handle(), window, BN_CLICKED);
    command(panel->get_window_handle(), window, BN_CLICKED);
    EXPECT_THAT(events, ElementsAre("first", "second"));
}

// -- handlers that take things away
// ---------------------------------------------------------------------------

TEST_F(native_notification, may_end_with_the_content_taken_out) {
    const auto group = create_group_box_control();
    group->set_content(stack_of({button, check_box}));
    const HWND group_window = show({group, edit}).front();
    const HWND window = children_of(group_window).front();
    button->set_on_click([&](IPanel* in) {
        in->set_content(nullptr);
        note("gone", in);
    });
    command(group_window, window, BN_CLICKED);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THAT(children_of(panel->get_window_handle()), IsEmpty());
    EXPECT_THAT(events, ElementsAre("gone"));
}

TEST_F(native_notification, may_end_with_the_last_reference_to_the_control) {
    auto edited = create_edit_control();
    const HWND window = show({edited}).front();
    edited->set_on_changed([&, kept = std::string("in the handler")](IPanel* in) {
        in->set_content(nullptr);
        edited.reset();
        note(kept, in);
    });
    SendMessageW(window, WM_CHAR, L'x', 0);
    EXPECT_THAT(events, ElementsAre("in the handler"));
}

TEST_F(native_notification, may_end_with_the_panel) {
    const auto group = create_group_box_control();
    group->set_content(stack_of({button}));
    const HWND group_window = show({group}).front();
    const HWND window = children_of(group_window).front();
    button->set_on_click([&](IPanel*) { panel.reset(); });
    command(group_window, window, BN_CLICKED);
    EXPECT_FALSE(IsWindow(group_window));
    panel = create_win32_hwnd_panel(nullptr);
}

}  // namespace
}  // namespace ui::mossHarbour
