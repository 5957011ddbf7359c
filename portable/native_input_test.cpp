// Native controls under the user's mouse and keys.

#include "portable/testing/dialog_keys.h"
#include "portable/testing/every_kind.h"
#include "portable/testing/native_panel_fixture.h"
#include "support/message_pump.h"

namespace ui::mossHarbour {
namespace {

using test_support::click;
using test_support::strike_key;
using testing::ElementsAre;
using testing::IsEmpty;

class native_input : public native_panel_fixture {
protected:
    [[nodiscard]] static POINT middle(HWND window) {
        RECT client{};
        GetClientRect(window, &client);
        return {client.right / 2, client.bottom / 2};
    }
    static void click_on(HWND window) { click(window, middle(window)); }

    [[nodiscard]] std::function<void(IPanel*)> noting(std::string event) {
        return [this, event](IPanel* in) {
            EXPECT_EQ(in, panel.get());
            events.push_back(event);
        };
    }

    std::vector<std::string> events;
};

TEST_F(native_input, clicks_reach_buttons_of_all_kinds) {
    const auto button = create_push_button_control();
    const auto check_box = create_check_box_control();
    const auto radio = create_radio_button_control(true);
    const auto group = create_group_box_control();
    group->set_content(stack_of({check_box, radio}));
    button->set_on_click(noting("button"));
    radio->set_on_click(noting("radio"));
    check_box->set_on_toggled([&](IPanel* in, bool on) { noting(on ? "on" : "off")(in); });
    const auto windows = show({button, group});
    button->set_text(L"Button");
    check_box->set_text(L"Check box");
    radio->set_text(L"Radio");
    present();
    const auto within = children_of(windows[1]);
    click_on(windows[0]);
    click_on(within[0]);
    click_on(within[0]);
    click_on(within[1]);
    EXPECT_THAT(events, ElementsAre("button", "on", "off", "radio"));
    EXPECT_FALSE(check_box->is_checked());
    EXPECT_TRUE(radio->is_checked());
}

TEST_F(native_input, a_disabled_button_takes_no_click) {
    const auto button = create_push_button_control();
    button->set_on_click(noting("button"));
    const HWND window = show({button}).front();
    button->set_text(L"Button");
    present();
    button->set_enabled(false);
    click_on(window);
    EXPECT_THAT(events, IsEmpty());
    button->set_enabled(true);
    click_on(window);
    EXPECT_THAT(events, ElementsAre("button"));
}

TEST_F(native_input, typing_tells_of_each_change) {
    const auto edit = create_edit_control();
    edit->set_on_changed(noting("changed"));
    const HWND window = show({edit}).front();
    present();
    click_on(window);
    test_support::type_text(L"ab");
    strike_key(VK_BACK);
    EXPECT_THAT(events, ElementsAre("changed", "changed", "changed"));
    wchar_t text[8] = L"";
    edit->get_text(text, 8);
    EXPECT_STREQ(text, L"a");
}

TEST_F(native_input, keys_choose_an_option) {
    const auto option = create_option_control();
    option->set_on_selection_changed(noting("changed"));
    const HWND window = show({option}).front();
    for (const wchar_t* const text : {L"red", L"green", L"blue"}) option->add_option(text);
    option->select_option(0);
    present();
    SetFocus(window);
    strike_key(VK_DOWN);
    strike_key(VK_END);
    EXPECT_EQ(option->get_selection(), 2);
    EXPECT_THAT(events, ElementsAre("changed", "changed"));
}

TEST_F(native_input, the_mouse_chooses_an_option_from_its_list) {
    const auto option = create_option_control();
    option->set_on_selection_changed(noting("changed"));
    const HWND window = show({option, create_edit_control()}).front();
    for (const wchar_t* const text : {L"red", L"green", L"blue"}) option->add_option(text);
    present();
    RECT closed{};
    GetWindowRect(window, &closed);
    click_on(window);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ASSERT_TRUE(GetComboBoxInfo(window, &parts));
    ASSERT_TRUE(test_support::pump_until([&] { return IsWindowVisible(parts.hwndList) != FALSE; }));
    RECT second{};
    SendMessageW(parts.hwndList, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&second));
    RECT list{};
    GetClientRect(parts.hwndList, &list);
    EXPECT_GE(list.bottom, 3 * (second.bottom - second.top)) << "each has its line";
    RECT dropped{};
    GetWindowRect(window, &dropped);
    EXPECT_TRUE(EqualRect(&dropped, &closed));
    click(parts.hwndList, {(second.left + second.right) / 2, (second.top + second.bottom) / 2});
    EXPECT_TRUE(test_support::pump_until([&] { return !events.empty(); }));
    EXPECT_EQ(option->get_selection(), 1);
    EXPECT_THAT(events, ElementsAre("changed"));
}

// -- navigation
// -----------------------------------------------------------------------------------------------

TEST_F(native_input, tab_goes_round_the_controls_and_into_group_boxes) {
    const auto edit = create_edit_control();
    const auto inner = create_push_button_control();
    const auto check_box = create_check_box_control();
    const auto option = create_option_control();
    const auto group = create_group_box_control();
    group->set_content(stack_of({create_label_control(), inner, check_box}));
    const auto windows = show({create_label_control(), edit, group, option});
    inner->set_text(L"Inner");
    present();
    const auto within = children_of(windows[2]);
    const dialog_keys keys(panel);
    SetFocus(windows[1]);
    std::vector<HWND> forwards;
    for (int i = 0; i < 4; ++i) {
        strike_key(VK_TAB);
        forwards.push_back(GetFocus());
    }
    EXPECT_THAT(forwards, ElementsAre(within[1], within[2], windows[3], windows[1]));
    std::vector<HWND> backwards;
    for (int i = 0; i < 4; ++i) {
        strike_key(VK_TAB, {VK_SHIFT});
        backwards.push_back(GetFocus());
    }
    EXPECT_THAT(backwards, ElementsAre(windows[3], within[2], within[1], windows[1]));
}

TEST_F(native_input, arrows_check_one_of_the_radio_buttons_of_a_group) {
    const com::ptr<IRadioButtonControl> radios[] = {
        create_radio_button_control(true), create_radio_button_control(false),
        create_radio_button_control(false), create_radio_button_control(true),
        create_radio_button_control(false)};
    for (std::size_t i = 0; i < std::size(radios); ++i) radios[i]->set_on_click(noting(std::to_string(i)));
    const auto windows = show({radios[0], radios[1], radios[2], radios[3], radios[4]});
    for (const auto& radio : radios) radio->set_text(L"Radio");
    radios[0]->set_checked(true);
    radios[3]->set_checked(true);
    present();
    const auto checked = [&] {
        std::string marks;
        for (const auto& radio : radios) marks += radio->is_checked() ? 'x' : '-';
        return marks;
    };
    const dialog_keys keys(panel);
    SetFocus(windows[0]);
    events.clear();
    EXPECT_EQ(checked(), "x--x-");
    strike_key(VK_DOWN);
    EXPECT_EQ(checked(), "-x-x-");
    EXPECT_EQ(GetFocus(), windows[1]);
    strike_key(VK_DOWN);
    EXPECT_EQ(checked(), "--xx-");
    strike_key(VK_DOWN);
    EXPECT_EQ(checked(), "x--x-") << "the next group starts behind the third";
    click_on(windows[4]);
    EXPECT_EQ(checked(), "x---x");
    EXPECT_THAT(events, ElementsAre("1", "2", "0", "4"));
}

TEST_F(native_input, space_and_enter_press_the_button_with_the_focus) {
    const auto first = create_push_button_control();
    const auto second = create_push_button_control();
    const auto group = create_group_box_control();
    group->set_content(stack_of({second}));
    first->set_on_click(noting("first"));
    second->set_on_click(noting("second"));
    const auto windows = show({first, group});
    first->set_text(L"First");
    second->set_text(L"Second");
    present();
    const dialog_keys keys(panel);
    SetFocus(windows[0]);
    strike_key(VK_SPACE);
    strike_key(VK_TAB);
    EXPECT_EQ(GetFocus(), children_of(windows[1]).front());
    strike_key(VK_SPACE);
    strike_key(VK_RETURN);
    EXPECT_THAT(events, ElementsAre("first", "second", "second"));
}

TEST_F(native_input, enter_and_escape_elsewhere_press_nothing) {
    const auto edit = create_edit_control();
    const auto button = create_push_button_control();
    button->set_on_click(noting("button"));
    panel->set_on_close([&] { events.emplace_back("closed"); });
    const auto windows = show({edit, button});
    present();
    const dialog_keys keys(panel);
    SetFocus(windows[0]);
    strike_key(VK_RETURN);
    strike_key(VK_ESCAPE);
    EXPECT_THAT(events, IsEmpty());
    EXPECT_TRUE(IsWindow(windows[0]));
}

TEST_F(native_input, the_frame_s_close_button_asks_the_handler) {
    const auto label = create_label_control();
    panel->set_on_close([&] { events.emplace_back("closed"); });
    show({label});
    label->set_text(L"a text");
    present();
    strike_key(VK_F4, {VK_MENU});
    EXPECT_TRUE(test_support::pump_until([&] { return !events.empty(); }));
    EXPECT_THAT(events, ElementsAre("closed"));
    EXPECT_TRUE(IsWindowVisible(panel->get_window_handle()));
}

}  // namespace
}  // namespace ui::mossHarbour
