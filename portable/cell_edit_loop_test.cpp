// The loop in which cells are edited, under messages that are posted ahead: what it asks for, how it ends,
// and clients that take things away within it.

#include "portable/cell_edit_loop.h"

#include "com/error.h"
#include "portable/testing/cell_editing_fixture.h"
#include "portable/testing/stub_element.h"
#include "support/message_pump.h"

#include <stdexcept>

namespace ui::mossHarbour {
namespace {

using list_view_control_impl::cell_edit_loop;
using list_view_control_impl::IHwndCellEditor;
using stubs::edges_of;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

class cell_edit_loops : public cell_editing_fixture {
protected:
    void SetUp() override {
        cell_editing_fixture::SetUp();
        panel->measure();
        const SIZE size = panel->get_window_sizes().preferred;
        SetWindowPos(panel->get_window_handle(), nullptr, 0, 0, size.cx, size.cy,
                     SWP_NOZORDER | SWP_SHOWWINDOW);
        test_support::pump_until_idle();
    }
    void TearDown() override {
        MSG left{};
        EXPECT_FALSE(PeekMessageW(&left, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the loop was broken";
        cell_editing_fixture::TearDown();
    }

    void select_and_press(int row, int column) {
        select(row);
        press_cell(row, column);
    }
    void expect_no_editor() const { EXPECT_THAT(children_of(window), ElementsAre(header())); }
    void take_list_away() {
        panel->set_content(nullptr);
        EXPECT_FALSE(IsWindow(window));
    }
};

// -- what it does
// ---------------------------------------------------------------------------------------------

/// Writes down what it is asked; has the focus as long as it is told so.
class noting_editor
    : public com::base_object<com::object_base, IListViewControl::ICellEditor, IHwndCellEditor> {
public:
    explicit noting_editor(std::vector<std::string>& to) : events(to) {}

    void begin_edit(HWND list, RECT cell) override {
        events.emplace_back("begin");
        begun_in = list;
        area = cell;
    }
    void end_edit() override { events.emplace_back("end"); }
    bool commit_edit() override {
        events.emplace_back("commit");
        return is_taking;
    }
    bool has_focus() override { return is_focused; }

    std::vector<std::string>& events;
    HWND begun_in = nullptr;
    RECT area{};
    bool is_focused = true;
    bool is_taking = true;

protected:
    ~noting_editor() = default;
};

TEST_F(cell_edit_loops, give_an_editor_the_area_of_its_cell) {
    for (const int column : {0, 1}) {
        const auto editor = com::create_object<noting_editor>(events);
        list->set_cell_editor_source([&](int, int) { return editor; });
        post_key(VK_RETURN);
        select_and_press(1, column);
        EXPECT_EQ(editor->begun_in, window);
        RECT expected = label_area(1, column);
        if (column == 0) expected.left -= 4;
        EXPECT_EQ(edges_of(editor->area), edges_of(expected)) << column;
        EXPECT_GT(expected.bottom - expected.top, 10);
        EXPECT_LE(expected.right, 100 * (column + 1));
    }
}

TEST_F(cell_edit_loops, ask_an_editor_to_commit_ahead_of_the_handler_and_to_end_behind_it) {
    const auto editor = com::create_object<noting_editor>(events);
    list->set_cell_editor_source([&](int, int) { return editor; });
    post_key(VK_RETURN);
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("begin", "commit", "kept 1", "end"));
    events.clear();
    post_key(VK_ESCAPE);
    press_cell(1, 0);
    EXPECT_THAT(events, ElementsAre("begin", "left 1", "end"));
    events.clear();
    editor->is_taking = false;
    post_key(VK_RETURN);
    press_cell(1, 0);
    EXPECT_THAT(events, ElementsAre("begin", "commit"));
}

TEST_F(cell_edit_loops, end_with_the_first_message_behind_the_loss_of_the_focus_and_dispatch_it) {
    const auto editor = com::create_object<noting_editor>(events);
    editor->is_focused = false;
    list->set_cell_editor_source([&](int, int) { return editor; });
    post_action([&] { events.emplace_back("dispatched"); });
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("begin", "commit", "kept 1", "end", "dispatched"));
}

TEST_F(cell_edit_loops, dispatch_what_is_not_theirs) {
    post_action([&] { events.emplace_back("dispatched"); });
    post_key(VK_RETURN);
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0", "dispatched", "took a1", "kept 1"));
}

TEST_F(cell_edit_loops, pass_on_the_end_of_the_program) {
    post_action([&] { PostQuitMessage(17); });
    MSG quit{};
    on_taken = [&] {
        EXPECT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE))
            << "a loop in here ends, too";
    };
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1"));
    ASSERT_TRUE(PeekMessageW(&quit, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(quit.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(quit.wParam, 17u);
}

TEST_F(cell_edit_loops, give_the_focus_to_the_list_for_a_press_on_the_row_that_is_edited) {
    std::vector<HWND> focused;
    post_action([&] {
        press_cell(1, 1);
        focused.push_back(GetFocus());
    });
    PostMessageW(window, WM_NULL, 0, 0);
    select_and_press(1, 0);
    EXPECT_THAT(focused, ElementsAre(window));
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1"));
}

TEST_F(cell_edit_loops, are_not_there_for_rows_that_are_not_selected) {
    for (const int selected : {-1, 2}) {
        if (selected >= 0) select(selected);
        select(1, false);
        PostMessageW(window, WM_LBUTTONUP, 0, 0);  // the list waits for it by itself
        press_cell(1, 0);
        EXPECT_THAT(events, IsEmpty());
    }
}

TEST_F(cell_edit_loops, are_not_there_for_a_press_beside_the_text_of_a_cell) {
    ask(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
    select(1);
    RECT box{LVIR_SELECTBOUNDS, 0, 0, 0};
    ask(LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&box));
    LVHITTESTINFO hit{};
    hit.pt = {box.left + 4, (box.top + box.bottom) / 2};
    ASSERT_EQ(ask(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)), 1);
    ASSERT_EQ(hit.flags & LVHT_ONITEMLABEL, 0u) << "a box is there";
    PostMessageW(window, WM_LBUTTONUP, 0, 0);  // the list waits for it by itself
    post_key(VK_ESCAPE);                       // would end the loop
    ask(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(hit.pt.x, hit.pt.y));
    EXPECT_THAT(events, IsEmpty());
    test_support::pump_until_idle();
}

TEST_F(cell_edit_loops, need_a_source_and_an_editor) {
    fixed_cells = {"1.0"};
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0"));
    list->set_cell_editor_source(nullptr);
    press_cell(1, 1);
    EXPECT_THAT(events, ElementsAre("asked 1.0"));
    expect_no_editor();
}

TEST_F(cell_edit_loops, need_a_facade) {
    cell_edit_loop loop(window, nullptr, nullptr);
    EXPECT_THAT([&] { loop.run({0, 0}); }, ThrowsMessage<std::logic_error>("illegal state"));
}

/// An editor of a client's own, which nothing can begin.
class foreign_editor : public com::base_object<com::object_base, IListViewControl::ICellEditor> {
protected:
    ~foreign_editor() = default;
};

TEST_F(cell_edit_loops, refuse_editors_of_another_kind) {
    list->set_cell_editor_source([](int, int) { return com::create_object<foreign_editor>(); });
    try {
        select_and_press(1, 0);
        FAIL() << "a foreign editor was taken";
    } catch (const com::error& caught) {
        EXPECT_EQ(caught.hresult, E_NOINTERFACE);
    }
    list->set_cell_editor_source([this](int row, int column) { return editor_of(row, column); });
    post_key(VK_RETURN);
    press_cell(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1")) << "the next one is edited";
}

// -- clients that fail
// ----------------------------------------------------------------------------------------

TEST_F(cell_edit_loops, pass_on_what_clients_throw_and_can_be_run_again) {
    const auto fail = [](const std::string& where) { return [where] { throw std::runtime_error(where); }; };
    const std::pair<std::function<void()>*, std::string> places[] = {
        {&on_asked, "asked"}, {&on_read, "read"}, {&on_taken, "taken"}};
    for (const auto& [place, name] : places) {
        *place = fail(name);
        post_key(VK_RETURN);
        EXPECT_THAT([&] { select_and_press(1, 0); }, ThrowsMessage<std::runtime_error>(name));
        test_support::pump_until_idle();
        expect_no_editor();
        *place = nullptr;
    }
    on_finished = [&](int) { fail("finished")(); };
    post_key(VK_TAB);
    EXPECT_THAT([&] { press_cell(1, 0); }, ThrowsMessage<std::runtime_error>("finished"));
    expect_no_editor();
    on_finished = nullptr;
    events.clear();
    post_key(VK_RETURN);
    press_cell(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1"));
}

TEST_F(cell_edit_loops, end_where_no_cell_can_be_edited_any_more) {
    on_finished = [&](int) { fixed_cells = {"0.0", "0.1", "1.0", "1.1", "2.0", "2.1"}; };
    post_key(VK_TAB);
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1", "asked 1.1", "asked 2.0", "asked 2.1",
                                    "asked 0.0", "asked 0.1", "asked 1.0"));
    expect_no_editor();
}

// -- clients that take things away
// ----------------------------------------------------------------------------

TEST_F(cell_edit_loops, go_on_behind_a_row_that_is_removed) {
    on_finished = [&](int row) {
        if (row_count() == 3) list->remove_row(row);
    };
    post_key(VK_TAB);
    post_key(VK_ESCAPE);
    select_and_press(0, 0);
    EXPECT_THAT(events, ElementsAre("asked 0.0", "took a0", "kept 0", "asked 0.1", "left 0"));
    EXPECT_THAT(column_texts(0), ElementsAre(L"a1", L"a2"));
}

TEST_F(cell_edit_loops, ask_for_no_row_behind_the_last_one) {
    on_finished = [&](int row) {
        if (row_count() == 3) list->remove_row(row);
    };
    post_key(VK_TAB);
    post_key(VK_ESCAPE);
    select_and_press(2, 0);
    EXPECT_THAT(events, ElementsAre("asked 2.0", "took a2", "kept 2", "asked 1.1", "left 1"));
}

TEST_F(cell_edit_loops, end_with_the_last_row) {
    on_finished = [&](int) {
        while (row_count() > 0) list->remove_row(0);
    };
    post_key(VK_TAB);
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1"));
    expect_no_editor();
}

TEST_F(cell_edit_loops, end_with_the_last_column) {
    on_finished = [&](int) {
        list->remove_column(1);
        list->remove_column(0);
    };
    post_key(VK_TAB);
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1"));
}

TEST_F(cell_edit_loops, end_without_a_word_when_the_list_goes_ahead_of_the_editor) {
    on_asked = [&] { take_list_away(); };
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0"));
}

TEST_F(cell_edit_loops, end_without_a_word_when_the_list_goes_as_the_text_is_read) {
    on_read = [&] { take_list_away(); };
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0"));
}

TEST_F(cell_edit_loops, end_without_a_word_when_the_list_goes_by_another_message) {
    post_action([&] { take_list_away(); });
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0")) << "a text that nobody sees any more is not taken";
}

TEST_F(cell_edit_loops, end_without_a_word_when_their_windows_are_destroyed) {
    post_action([&] { DestroyWindow(panel->get_window_handle()); });
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0")) << "an empty text would be taken";
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(cell_edit_loops, end_without_a_word_when_the_list_goes_as_the_text_is_taken) {
    for (const int key : {VK_TAB, VK_RETURN}) {
        events.clear();
        on_taken = [&] { take_list_away(); };
        post_key(key);
        select_and_press(1, 0);
        EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1"));
        show_list_and_button();
        add_columns({L"a", L"b"});
        for (const wchar_t* const text : {L"a0", L"a1"}) add_row({text});
    }
}

TEST_F(cell_edit_loops, end_when_the_list_goes_as_its_text_is_refused) {
    refused_texts = {L"a1"};
    on_taken = [&] { take_list_away(); };
    post_key(VK_TAB);
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0", "refused a1"));
}

TEST_F(cell_edit_loops, end_when_the_list_goes_in_the_handler) {
    for (const int key : {VK_TAB, VK_RETURN, VK_ESCAPE}) {
        events.clear();
        on_finished = [&](int) { take_list_away(); };
        post_key(key);
        select_and_press(1, 0);
        EXPECT_EQ(events.back(), key == VK_ESCAPE ? "left 1" : "kept 1");
        show_list_and_button();
        add_columns({L"a", L"b"});
        for (const wchar_t* const text : {L"a0", L"a1"}) add_row({text});
    }
}

TEST_F(cell_edit_loops, end_when_the_list_comes_back_in_the_handler) {
    on_finished = [&](int) {
        take_list_away();
        show_list_and_button();
        add_columns({L"a", L"b"});
        add_row({L"new", L"new"});
    };
    post_key(VK_TAB);
    select_and_press(1, 0);
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1"));
    on_finished = nullptr;
    events.clear();
    post_key(VK_RETURN);
    select_and_press(0, 1);
    EXPECT_THAT(events, ElementsAre("asked 0.1", "took new", "kept 0"));
}

TEST_F(cell_edit_loops, end_with_panel_and_list) {
    on_finished = [&](int) {
        panel.reset();
        list.reset();
        button.reset();
    };
    post_key(VK_TAB);
    select_and_press(1, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1"));
}

TEST_F(cell_edit_loops, leave_a_refused_editor_to_the_client_that_keeps_it) {
    auto kept = list->create_text_editor(nullptr, [](const wchar_t*) { return false; });
    list->set_cell_editor_source([&](int, int) { return kept; });
    post_key(VK_RETURN);
    select_and_press(1, 0);
    EXPECT_EQ(children_of(window).size(), 2u) << "its windows stand until it goes";
    kept.reset();
    expect_no_editor();
}

TEST_F(cell_edit_loops, leak_nothing_over_many_edits) {
    select(1);
    test_support::expect_no_growth([&] {
        events.clear();
        post_key(VK_TAB);
        post_key(VK_ESCAPE);
        press_cell(1, 0);
    });
    expect_no_editor();
}

}  // namespace
}  // namespace ui::mossHarbour
