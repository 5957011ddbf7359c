// The frame around other native controls: its window's messages and the end of its life.

#include "portable/testing/native_panel_fixture.h"
#include "portable/testing/stub_element.h"
#include "support/sent_messages.h"
#include "ui/mossHarbour/IEditControl.h"
#include "ui/mossHarbour/IGroupBoxControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"

#include <commctrl.h>

namespace ui::mossHarbour {
namespace {

using testing::ElementsAre;

class native_group_box : public native_panel_fixture {
protected:
    [[nodiscard]] static LONG_PTR procedure_of(HWND window) {
        return GetWindowLongPtrW(window, GWLP_WNDPROC);
    }
};

TEST_F(native_group_box, has_its_procedure_back_ahead_of_all_else) {
    const auto inside = com::create_object<stubs::stub_element>(element_metrics{});
    const auto group = create_group_box_control();
    group->set_content(stack_of({inside}));
    const HWND window = show({group}).front();
    const auto of_the_class = static_cast<LONG_PTR>(GetClassLongPtrW(window, GCLP_WNDPROC));
    EXPECT_NE(procedure_of(window), of_the_class);
    int going = 0;
    inside->when_going = [&] {
        ++going;
        EXPECT_EQ(procedure_of(window), of_the_class);
        EXPECT_NE(GetWindowLongPtrW(window, GWLP_USERDATA), 0);
    };
    panel->set_content(nullptr);
    EXPECT_EQ(going, 1);
    EXPECT_FALSE(IsWindow(window));
}

/// For its lifetime new windows of a class have their messages written down.
class listened_class {
public:
    explicit listened_class(const wchar_t* name) {
        messages().clear();
        sample = CreateWindowExW(0, name, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        former() = reinterpret_cast<WNDPROC>(
            SetClassLongPtrW(sample, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
    }
    listened_class(const listened_class&) = delete;
    listened_class& operator=(const listened_class&) = delete;
    ~listened_class() {
        SetClassLongPtrW(sample, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(former()));
        DestroyWindow(sample);
    }

    [[nodiscard]] static std::vector<UINT>& messages() {
        static std::vector<UINT> received;
        return received;
    }

private:
    static WNDPROC& former() {
        static WNDPROC of_the_class = nullptr;
        return of_the_class;
    }
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        messages().push_back(message);
        return CallWindowProcW(former(), window, message, wparam, lparam);
    }

    HWND sample = nullptr;
};

TEST_F(native_group_box, hands_on_what_it_erases_and_what_no_control_handles) {
    const listened_class buttons(L"Button");
    const auto edit = create_edit_control();
    const auto group = create_group_box_control();
    group->set_content(stack_of({edit}));
    const HWND frame = show({group}).front();
    const HWND field = children_of(frame).front();
    const HDC dc = GetDC(frame);
    listened_class::messages().clear();
    SendMessageW(frame, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
    SendMessageW(frame, WM_COMMAND, MAKEWPARAM(0, EN_CHANGE), reinterpret_cast<LPARAM>(field));
    SendMessageW(frame, WM_COMMAND, MAKEWPARAM(0, EN_UPDATE), reinterpret_cast<LPARAM>(field));
    NMHDR notification{field, 0, static_cast<UINT>(NM_CLICK)};
    SendMessageW(frame, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    EXPECT_THAT(listened_class::messages(), ElementsAre(WM_ERASEBKGND, WM_COMMAND, WM_NOTIFY));
    ReleaseDC(frame, dc);
    panel->set_content(nullptr);
}

TEST_F(native_group_box, and_what_is_in_it_are_forgotten_ahead_of_their_windows_end) {
    const auto edit = create_edit_control();
    const auto group = create_group_box_control();
    group->set_content(stack_of({edit}));
    const HWND frame = show({group}).front();
    const HWND field = children_of(frame).front();
    std::vector<HWND> destroyed;
    const test_support::sent_messages messages([&](const CWPSTRUCT& sent) {
        if (sent.message != WM_DESTROY) return;
        destroyed.push_back(sent.hwnd);
        EXPECT_EQ(GetWindowLongPtrW(sent.hwnd, GWLP_USERDATA), 0);
        EXPECT_EQ(widget_of(sent.hwnd), nullptr);
    });
    panel->set_content(nullptr);
    EXPECT_THAT(destroyed, ElementsAre(field, frame));
}

TEST_F(native_group_box, paints_the_dialog_s_colour_between_its_lines) {
    const auto group = create_group_box_control();
    const HWND window = show({group}).front();
    MoveWindow(window, 0, 0, 40, 30, FALSE);
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 50, 50);
    const HGDIOBJ former = SelectObject(memory, bitmap);
    const RECT all{0, 0, 50, 50};
    FillRect(memory, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    SendMessageW(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory), 0);
    for (const POINT inside : {POINT{0, 0}, POINT{39, 29}, POINT{20, 15}}) {
        EXPECT_EQ(GetPixel(memory, inside.x, inside.y), GetSysColor(COLOR_BTNFACE)) << inside.x;
    }
    EXPECT_EQ(GetPixel(memory, 40, 15), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(memory, 20, 30), RGB(0, 0, 0));
    SelectObject(memory, former);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

TEST_F(native_group_box, leaves_all_other_messages_to_its_class) {
    const auto group = create_group_box_control();
    const HWND window = show({group}).front();
    group->set_text(L"Caption");
    EXPECT_EQ(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0), 7);
    EXPECT_TRUE(SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_STATIC);
    EXPECT_EQ(SendMessageW(window, WM_COMMAND, MAKEWPARAM(0, BN_CLICKED), reinterpret_cast<LPARAM>(window)),
              0);
    EXPECT_EQ(SendMessageW(window, WM_APP, 1, 2), 0);
}

TEST_F(native_group_box, stands_in_the_panel_s_window_with_its_content_in_its_own) {
    const auto inner = create_group_box_control();
    const auto outer = create_group_box_control();
    inner->set_content(stack_of({create_push_button_control()}));
    outer->set_content(stack_of({inner}));
    const HWND outer_window = show({outer}).front();
    ASSERT_EQ(children_of(outer_window).size(), 1u);
    const HWND inner_window = children_of(outer_window).front();
    ASSERT_EQ(children_of(inner_window).size(), 1u);
    EXPECT_EQ(GetParent(inner_window), outer_window);
    EXPECT_EQ(GetParent(outer_window), panel->get_window_handle());
}

TEST_F(native_group_box, takes_another_content_between_two_lives) {
    const auto edit = create_edit_control();
    const auto button = create_push_button_control();
    const auto group = create_group_box_control();
    const auto first = stack_of({edit});
    EXPECT_FALSE(group->set_content(first));
    show({group});
    EXPECT_THAT([&] { group->set_content(nullptr); },
                testing::ThrowsMessage<std::logic_error>(
                    "An operation was attempted on a control that has already been materialized"));
    panel->set_content(nullptr);
    EXPECT_TRUE(group->set_content(stack_of({button})) == first);
    show({group});
    button->set_text(L"x");
    EXPECT_THROW(edit->set_text(L"x"), std::logic_error);
}

}  // namespace
}  // namespace ui::mossHarbour
