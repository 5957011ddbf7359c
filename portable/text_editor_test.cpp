// The field over a cell.

#include "portable/text_editor.h"

#include "com/object.h"
#include "portable/testing/list_fixture.h"
#include "portable/testing/stub_element.h"
#include "portable/testing/window_creations.h"
#include "portable/toolkit_font.h"
#include "win32/module.h"

#include <stdexcept>

namespace ui::mossHarbour {
namespace {

using list_view_control_impl::IHwndCellEditor;
using list_view_control_impl::text_editor;
using stubs::edges_of;
using testing::ElementsAre;
using testing::SizeIs;
using testing::ThrowsMessage;

class text_editors : public list_fixture {
protected:
    void SetUp() override {
        list_fixture::SetUp();
        show_list();
        editor = com::create_object<text_editor>(
            [this](wchar_t* buffer, std::size_t capacity) {
                capacities.push_back(capacity);
                text.copy(buffer, capacity - 1);
            },
            [this](const wchar_t* taken) {
                texts.emplace_back(taken);
                return is_taking;
            });
    }
    void TearDown() override {
        editor.reset();
        list_fixture::TearDown();
    }

    /// The list's windows but for its header.
    [[nodiscard]] std::vector<HWND> containers() const {
        auto windows = children_of(window);
        std::erase(windows, header());
        return windows;
    }
    [[nodiscard]] HWND edit() const { return children_of(containers().at(0)).at(0); }

    [[nodiscard]] static std::vector<LONG> place_of(HWND child) {
        RECT place{};
        GetWindowRect(child, &place);
        MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&place), 2);
        return edges_of(place);
    }

    /// Where an edit of that size formats its text.
    [[nodiscard]] RECT line_within(SIZE room) const {
        const HWND like = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | ES_AUTOHSCROLL, 0, 0, room.cx, room.cy,
                                          window, nullptr, nullptr, nullptr);
        SendMessageW(like, WM_SETFONT, reinterpret_cast<WPARAM>(toolkit_font), FALSE);
        RECT line{};
        SendMessageW(like, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&line));
        DestroyWindow(like);
        return line;
    }

    com::ptr<IHwndCellEditor> editor;
    std::wstring text = L"text";
    bool is_taking = true;
    std::vector<std::size_t> capacities;
    std::vector<std::wstring> texts;
};

TEST_F(text_editors, are_an_edit_within_a_white_window) {
    const window_creations created;
    editor->begin_edit(window, {20, 30, 120, 50});
    ASSERT_GE(created.all.size(), 2u);  // the system may add one for the keyboard
    const auto& [container, edited] = std::tie(created.all[0], created.all[1]);
    EXPECT_EQ(container.class_name, L"STATIC");
    EXPECT_EQ(container.style, 0x40000006u);
    EXPECT_EQ(container.ex_style, 0u);
    EXPECT_FALSE(container.has_title);
    EXPECT_EQ(container.parent, window);
    EXPECT_EQ(edited.class_name, L"EDIT");
    EXPECT_EQ(edited.style, 0x50000080u);
    EXPECT_EQ(edited.ex_style, 0u);
    EXPECT_TRUE(edited.has_title);
    EXPECT_EQ(edited.parent, containers().at(0));
    EXPECT_EQ(edited.module, win32::library_module());
    EXPECT_NE(GetWindowLongW(containers().at(0), GWL_STYLE) & WS_VISIBLE, 0);
}

TEST_F(text_editors, show_their_text_selected_with_the_focus) {
    EXPECT_FALSE(editor->has_focus());
    editor->begin_edit(window, {20, 30, 120, 50});
    EXPECT_EQ(text_of_window(edit()), L"text");
    EXPECT_THAT(capacities, ElementsAre(1024u));
    EXPECT_EQ(SendMessageW(edit(), EM_GETSEL, 0, 0), MAKELRESULT(0, 4));
    EXPECT_EQ(SendMessageW(edit(), WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(toolkit_font));
    EXPECT_EQ(GetFocus(), edit());
    EXPECT_TRUE(editor->has_focus());
    SetFocus(window);
    EXPECT_FALSE(editor->has_focus());
}

TEST_F(text_editors, cover_their_cell_with_the_text_in_the_middle) {
    for (const SIZE room : {SIZE{100, 20}, SIZE{60, 41}, SIZE{200, 14}}) {
        const RECT line = line_within(room);
        editor->begin_edit(window, {20, 30, 20 + room.cx, 30 + room.cy});
        EXPECT_THAT(place_of(containers().at(0)), ElementsAre(20, 30, 20 + room.cx, 30 + room.cy));
        const LONG offset = (line.top - line.bottom + room.cy) / 2;
        EXPECT_THAT(place_of(edit()),
                    ElementsAre(line.left + 6, line.top + offset, line.right - 2, line.bottom + offset));
        editor->end_edit();
    }
}

TEST_F(text_editors, hand_on_what_they_show) {
    editor->begin_edit(window, {20, 30, 120, 50});
    EXPECT_TRUE(editor->commit_edit());
    SetWindowTextW(edit(), L"another");
    is_taking = false;
    EXPECT_FALSE(editor->commit_edit());
    EXPECT_THAT(texts, ElementsAre(L"text", L"another"));
    EXPECT_THAT(containers(), SizeIs(1)) << "and stay";
}

TEST_F(text_editors, hold_1023_units) {
    text.assign(3000, L'x');
    editor->begin_edit(window, {20, 30, 120, 50});
    EXPECT_EQ(text_of_window(edit()), std::wstring(1023, L'x'));
    SetWindowTextW(edit(), std::wstring(2000, L'y').c_str());
    editor->commit_edit();
    EXPECT_THAT(texts, ElementsAre(std::wstring(1023, L'y')));
}

TEST_F(text_editors, end_with_their_windows) {
    editor->begin_edit(window, {20, 30, 120, 50});
    const HWND container = containers().at(0);
    editor->end_edit();
    EXPECT_FALSE(IsWindow(container));
    EXPECT_FALSE(editor->has_focus());
    editor->end_edit();
    EXPECT_THAT(texts, ElementsAre());
}

TEST_F(text_editors, give_the_focus_back_to_the_list) {
    present();
    editor->begin_edit(window, {20, 30, 120, 50});
    EXPECT_EQ(GetFocus(), edit());
    editor->end_edit();
    EXPECT_EQ(GetFocus(), window);
}

TEST_F(text_editors, leave_the_focus_where_it_has_gone) {
    present();
    editor->begin_edit(window, {20, 30, 120, 50});
    SetFocus(header());
    editor->end_edit();
    EXPECT_EQ(GetFocus(), header());
}

TEST_F(text_editors, take_their_windows_along) {
    editor->begin_edit(window, {20, 30, 120, 50});
    editor.reset();
    EXPECT_THAT(containers(), ElementsAre());
}

TEST_F(text_editors, survive_the_list) {
    editor->begin_edit(window, {20, 30, 120, 50});
    panel->set_content(nullptr);
    EXPECT_FALSE(editor->has_focus());
    editor->end_edit();
}

TEST_F(text_editors, can_begin_again) {
    editor->begin_edit(window, {20, 30, 120, 50});
    text = L"second";
    editor->begin_edit(window, {20, 60, 120, 80});
    EXPECT_THAT(containers(), SizeIs(1));
    EXPECT_THAT(place_of(containers().at(0)), ElementsAre(20, 60, 120, 80));
    EXPECT_EQ(text_of_window(edit()), L"second");
}

TEST_F(text_editors, leave_nothing_where_a_window_cannot_be_created) {
    for (const std::size_t refused : {1u, 2u}) {
        const window_creations one_refused(
            [&, count = std::size_t{0}](const window_creation&) mutable { return ++count == refused; });
        EXPECT_THAT(
            [&] {
                editor->begin_edit(window, {20, 30, 120, 50});
            },
            ThrowsMessage<std::runtime_error>("failed to create window!"));
        EXPECT_FALSE(editor->has_focus());
        editor->end_edit();
        EXPECT_THAT(containers(), ElementsAre());
    }
}

TEST_F(text_editors, need_neither_a_list_nor_functions) {
    const auto unbound = list->create_text_editor(nullptr, nullptr);
    const com::ptr<IHwndCellEditor> plain = unbound;
    plain->begin_edit(window, {20, 30, 120, 50});
    EXPECT_EQ(text_of_window(edit()), L"");
    EXPECT_TRUE(plain->commit_edit());
    plain->end_edit();
    const auto off_screen = create_list_view_control();
    EXPECT_TRUE(off_screen->create_text_editor(nullptr, nullptr));
}

}  // namespace
}  // namespace ui::mossHarbour
