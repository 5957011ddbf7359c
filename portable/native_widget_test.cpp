// What stands on the screen for each kind of control, among native windows.

#include "com/error.h"
#include "com/object.h"
#include "portable/hwnd_materialization_context_impl.h"
#include "portable/native_widget_factories.h"
#include "portable/push_button_control_impl.h"
#include "portable/testing/every_kind.h"
#include "portable/testing/native_panel_fixture.h"
#include "portable/testing/stub_element.h"
#include "portable/testing/window_creations.h"
#include "portable/toolkit_font.h"
#include "support/sent_messages.h"
#include "win32/module.h"

namespace ui::mossHarbour {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

class native_widget : public native_panel_fixture {
protected:
    [[nodiscard]] static std::wstring text_of(HWND window) { return text_of_window(window); }
};

TEST_F(native_widget, is_a_window_of_its_class_and_styles) {
    create_window();
    for (const auto& [element, kind, style, ex_style] : every_kind()) {
        const window_creations created;
        panel->set_content(stack_of({element}));
        ASSERT_FALSE(created.all.empty()) << kind;  // the list of an option follows
        const window_creation& window = created.all.front();
        EXPECT_EQ(window.class_name, kind);
        EXPECT_EQ(window.style, style) << kind;
        EXPECT_EQ(window.ex_style, ex_style) << kind;
        EXPECT_FALSE(window.has_title) << kind;
        EXPECT_EQ(window.parent, panel->get_window_handle()) << kind;
        EXPECT_EQ(window.module, win32::library_module()) << kind;
    }
}

TEST_F(native_widget, has_the_toolkit_font_and_knows_its_widget) {
    for (const auto& [element, kind, style, ex_style] : every_kind()) {
        const auto windows = show({element});
        ASSERT_EQ(windows.size(), 1u);
        EXPECT_EQ(SendMessageW(windows[0], WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(toolkit_font))
            << kind;
        auto* const known = reinterpret_cast<IHwndWidget*>(GetWindowLongPtrW(windows[0], GWLP_USERDATA));
        ASSERT_NE(known, nullptr) << kind;
        EXPECT_EQ(widget_of(windows[0]), known) << kind;
        EXPECT_TRUE(com::ptr<IHwndWidget>(known).try_as<IMaterializedElement>()) << kind;
        EXPECT_EQ(text_of(windows[0]), L"") << kind;
    }
}

TEST_F(native_widget, is_known_by_the_time_that_its_window_gets_the_font) {
    const HWND parent = create_window();
    for (const auto& [element, kind, style, ex_style] : every_kind()) {
        std::vector<WPARAM> fonts;
        {
            const test_support::sent_messages messages([&](const CWPSTRUCT& sent) {
                if (sent.message != WM_SETFONT || GetParent(sent.hwnd) != parent) return;
                fonts.push_back(sent.wParam);
                EXPECT_NE(widget_of(sent.hwnd), nullptr);
            });
            panel->set_content(stack_of({element}));
        }
        EXPECT_THAT(fonts, ElementsAre(reinterpret_cast<WPARAM>(toolkit_font))) << kind;
    }
}

TEST_F(native_widget, has_no_width_in_the_corner_until_it_is_placed) {
    for (const auto& [element, kind, style, ex_style] : every_kind()) {
        const HWND window = show({element}).front();
        RECT place{};
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, panel->get_window_handle(), reinterpret_cast<POINT*>(&place), 2);
        EXPECT_EQ(place.left, 0) << kind;
        EXPECT_EQ(place.top, 0) << kind;
        EXPECT_EQ(place.right, 0) << kind;
    }
}

TEST_F(native_widget, leaves_its_window_to_end_with_the_procedure_of_its_class) {
    for (const com::ptr<IElement>& element :
         {com::ptr<IElement>(create_group_box_control()), com::ptr<IElement>(create_list_view_control())}) {
        const HWND window = show({element}).front();
        const auto of_the_class = static_cast<LONG_PTR>(GetClassLongPtrW(window, GCLP_WNDPROC));
        EXPECT_NE(GetWindowLongPtrW(window, GWLP_WNDPROC), of_the_class);
        int ends = 0;
        const test_support::sent_messages messages([&](const CWPSTRUCT& sent) {
            if (sent.message != WM_DESTROY || sent.hwnd != window) return;
            ++ends;
            EXPECT_EQ(GetWindowLongPtrW(window, GWLP_WNDPROC), of_the_class);
        });
        panel->set_content(nullptr);
        EXPECT_EQ(ends, 1);
    }
}

TEST_F(native_widget, goes_with_its_window_and_comes_back_blank) {
    const auto edit = create_edit_control();
    int changes = 0;
    edit->set_on_changed([&](IPanel*) { ++changes; });
    const HWND first = show({edit}).front();
    edit->set_text(L"harbour");
    panel->set_content(nullptr);
    EXPECT_FALSE(IsWindow(first));
    EXPECT_THROW(edit->set_text(L"x"), std::logic_error);
    const HWND second = show({edit}).front();
    EXPECT_EQ(text_of(second), L"");
    SendMessageW(second, WM_CHAR, L'x', 0);
    EXPECT_EQ(changes, 1);
}

TEST_F(native_widget, is_registered_in_a_fixed_order) {
    std::vector<std::string> kinds;
    register_native_widgets([&](const std::type_info& type, com::ptr<IHwndWidget> (*make)()) {
        EXPECT_TRUE(make()) << type.name();
        kinds.push_back(type.name());
    });
    const auto named = [](std::string_view kind) {
        return testing::HasSubstr(std::string(kind) + "_control_impl");
    };
    EXPECT_THAT(kinds, ElementsAre(named("label"), named("edit"), named("option"), named("group_box"),
                                   named("check_box"), named("radio_button"), named("push_button"),
                                   named("list_view")));
}

// -- live state
// -----------------------------------------------------------------------------------------------

TEST_F(native_widget, shows_the_texts_that_it_is_given) {
    const auto label = create_label_control();
    const auto edit = create_edit_control();
    const auto check_box = create_check_box_control();
    const auto radio = create_radio_button_control(false);
    const auto button = create_push_button_control();
    const auto group = create_group_box_control();
    const auto windows = show({label, edit, check_box, radio, button, group});
    ASSERT_EQ(windows.size(), 6u);
    label->set_text(L"one");
    edit->set_text(L"two");
    check_box->set_text(L"three");
    radio->set_text(L"four");
    button->set_text(L"five");
    group->set_text(L"six");
    std::vector<std::wstring> texts;
    for (const HWND window : windows) texts.push_back(text_of(window));
    EXPECT_THAT(texts, ElementsAre(L"one", L"two", L"three", L"four", L"five", L"six"));
}

TEST_F(native_widget, gives_an_edit_s_text_as_far_as_there_is_room) {
    const auto edit = create_edit_control();
    show({edit});
    edit->set_text(L"harbour");
    wchar_t large[20] = L"";
    edit->get_text(large, 20);
    EXPECT_STREQ(large, L"harbour");
    wchar_t small[] = L"????";
    edit->get_text(small, 4);
    EXPECT_STREQ(small, L"har");
    wchar_t exact[] = L"????????";
    edit->get_text(exact, 8);
    EXPECT_STREQ(exact, L"harbour");
    wchar_t none[] = L"?";
    edit->get_text(none, 0);
    EXPECT_STREQ(none, L"?");
}

TEST_F(native_widget, tells_of_an_edit_s_changes_by_the_user_alone) {
    const auto edit = create_edit_control();
    const HWND window = show({edit}).front();
    std::vector<IPanel*> told;
    edit->set_on_changed([&](IPanel* in) { told.push_back(in); });
    edit->set_text(L"harbour");
    EXPECT_THAT(told, IsEmpty());
    SendMessageW(window, WM_CHAR, L's', 0);
    EXPECT_THAT(told, ElementsAre(panel.get()));
    edit->set_text(L"again");
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(native_widget, keeps_options_and_their_selection) {
    const auto option = create_option_control();
    const HWND window = show({option}).front();
    int changes = 0;
    option->set_on_selection_changed([&](IPanel*) { ++changes; });
    EXPECT_EQ(option->get_selection(), -1);
    for (const wchar_t* const text : {L"red", L"green", L"blue"}) option->add_option(text);
    EXPECT_EQ(SendMessageW(window, CB_GETCOUNT, 0, 0), 3);
    option->select_option(2);
    EXPECT_EQ(option->get_selection(), 2);
    EXPECT_EQ(text_of(window), L"blue");
    option->select_option(-1);
    EXPECT_EQ(option->get_selection(), -1);
    option->select_option(0);
    EXPECT_EQ(changes, 0);
    SendMessageW(window, WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(option->get_selection(), 1);
    EXPECT_EQ(changes, 1);
}

TEST_F(native_widget, keeps_marks) {
    const auto check_box = create_check_box_control();
    const auto radio = create_radio_button_control(true);
    const auto windows = show({check_box, radio});
    int told = 0;
    check_box->set_on_toggled([&](IPanel*, bool) { ++told; });
    radio->set_on_click([&](IPanel*) { ++told; });
    EXPECT_FALSE(check_box->is_checked());
    EXPECT_FALSE(radio->is_checked());
    check_box->set_checked(true);
    radio->set_checked(true);
    EXPECT_TRUE(check_box->is_checked());
    EXPECT_TRUE(radio->is_checked());
    EXPECT_EQ(SendMessageW(windows[0], BM_GETCHECK, 0, 0), BST_CHECKED);
    check_box->set_checked(false);
    radio->set_checked(false);
    EXPECT_FALSE(check_box->is_checked());
    EXPECT_FALSE(radio->is_checked());
    EXPECT_EQ(told, 0);
}

TEST_F(native_widget, counts_a_third_state_as_checked_in_a_check_box_alone) {
    const auto check_box = create_check_box_control();
    const auto radio = create_radio_button_control(true);
    const auto windows = show({check_box, radio});
    for (const HWND window : windows) {
        const LONG style = GetWindowLongW(window, GWL_STYLE);
        SetWindowLongW(window, GWL_STYLE, (style & ~BS_TYPEMASK) | BS_3STATE);
        SendMessageW(window, BM_SETCHECK, BST_INDETERMINATE, 0);
        ASSERT_EQ(SendMessageW(window, BM_GETCHECK, 0, 0), BST_INDETERMINATE);
    }
    EXPECT_TRUE(check_box->is_checked());
    EXPECT_FALSE(radio->is_checked());
}

TEST_F(native_widget, enables_and_disables_a_push_button) {
    const auto button = create_push_button_control();
    const HWND window = show({button}).front();
    EXPECT_TRUE(IsWindowEnabled(window));
    button->set_enabled(false);
    EXPECT_FALSE(IsWindowEnabled(window));
    button->set_enabled(true);
    EXPECT_TRUE(IsWindowEnabled(window));
}

// -- failures
// -------------------------------------------------------------------------------------------------

TEST_F(native_widget, leaves_nothing_behind_where_its_window_cannot_be_created) {
    const HWND window = create_window();
    for (const auto& [element, kind, style, ex_style] : every_kind()) {
        const auto label = create_label_control();
        const auto content = stack_of({label, element});
        {
            const window_creations second_refused(
                [count = 0](const window_creation&) mutable { return ++count == 2; });
            EXPECT_THAT([&] { panel->set_content(content); },
                        ThrowsMessage<std::runtime_error>("failed to create window!"))
                << kind;
        }
        EXPECT_THAT(children_of(window), IsEmpty()) << kind;
        EXPECT_THROW(label->set_text(L"x"), std::logic_error) << kind;
        panel->set_content(content);
        EXPECT_EQ(children_of(window).size(), 2u) << kind;
        panel->set_content(nullptr);
    }
}

TEST_F(native_widget, forgets_its_facade_where_its_window_cannot_be_created) {
    const auto facade = com::create_object<push_button_control_impl::facade_impl>();
    const auto widget = push_button_control_impl::make_win32_widget();
    const auto word = facade->reference_word();
    hwnd_materialization_context_impl context(create_window(), panel.get());
    {
        const window_creations refused([](const window_creation&) { return true; });
        EXPECT_THROW(widget->materialize(context, com::ptr<IUnknown>(facade->get_IUnknown()).get()),
                     std::runtime_error);
    }
    EXPECT_EQ(facade->reference_word(), word);
}

TEST_F(native_widget, refuses_a_facade_of_another_kind) {
    const auto widget = push_button_control_impl::make_win32_widget();
    const com::ptr<IUnknown> label = create_label_control();
    hwnd_materialization_context_impl context(create_window(), panel.get());
    try {
        widget->materialize(context, label.get());
        FAIL() << "a label was taken for a push button";
    } catch (const com::error& caught) {
        EXPECT_EQ(caught.hresult, E_NOINTERFACE);
    }
    EXPECT_THAT(children_of(panel->get_window_handle()), IsEmpty());
}

TEST_F(native_widget, has_no_form_for_other_types) {
    hwnd_materialization_context_impl context(nullptr, panel.get());
    EXPECT_THAT([&] { static_cast<void>(context.materialize(typeid(int), nullptr)); },
                ThrowsMessage<std::runtime_error>("Unable to materialized the specified element!"));
}

TEST_F(native_widget, of_a_group_box_is_taken_back_when_its_content_fails) {
    const auto label = create_label_control();
    const auto refusing = com::create_object<stubs::stub_element>(element_metrics{});
    refusing->is_refusing = true;
    const auto group = create_group_box_control();
    group->set_content(stack_of({label, refusing}));
    const HWND window = create_window();
    EXPECT_THAT([&] { panel->set_content(stack_of({group})); }, ThrowsMessage<std::runtime_error>("refused"));
    EXPECT_THAT(children_of(window), IsEmpty());
    EXPECT_THROW(label->set_text(L"x"), std::logic_error);
    group->set_padding(1, 1, 1, 1);  // description still
    refusing->is_refusing = false;
    panel->set_content(stack_of({group}));
    EXPECT_EQ(children_of(window).size(), 1u);
    label->set_text(L"x");
}

TEST_F(native_widget, that_its_facade_has_left_for_another_takes_its_window_along) {
    const HWND parent = create_window();
    const auto other = create_win32_hwnd_panel(nullptr);
    const HWND others = other->create_window(0, L"other", WS_POPUP, nullptr);
    for (const auto& [element, kind, style, ex_style] : every_kind()) {
        const HWND left = show({element}).front();
        other->set_content(stack_of({element}));
        EXPECT_EQ(children_of(others).size(), 1u) << kind;
        panel->set_content(nullptr);  // the facade knows its latest form alone
        EXPECT_FALSE(IsWindow(left)) << kind;
        EXPECT_THAT(children_of(parent), IsEmpty()) << kind;
        other->set_content(nullptr);
        EXPECT_THAT(children_of(others), IsEmpty()) << kind;
    }
}

TEST_F(native_widget, leaks_nothing_over_many_lives) {
    const auto group = create_group_box_control();
    group->set_content(
        stack_of({create_edit_control(), create_option_control(), create_radio_button_control(true)}));
    const auto content =
        stack_of({create_label_control(), create_check_box_control(), create_push_button_control(), group});
    test_support::expect_no_growth([&] {
        panel->set_content(content);
        create_window();
        panel->measure();
        panel->destroy_window();
    });
}

}  // namespace
}  // namespace ui::mossHarbour
