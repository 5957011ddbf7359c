// Editing cells of a list by the user's mouse and keys.

#include "portable/testing/cell_editing_fixture.h"
#include "support/message_pump.h"

#include <atomic>

namespace ui::mossHarbour {
namespace {

using test_support::click;
using test_support::strike_key;
using testing::ElementsAre;
using testing::IsEmpty;

/// What has the focus in a thread.
HWND focus_of(DWORD thread) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(thread, &info);
    return info.hwndFocus;
}

bool is_edit(HWND window) {
    wchar_t name[16] = L"";
    return window && GetClassNameW(window, name, 16) > 0 &&
           CompareStringOrdinal(name, -1, L"Edit", -1, TRUE) == CSTR_EQUAL;
}

class cell_editing : public cell_editing_fixture {
protected:
    void SetUp() override {
        cell_editing_fixture::SetUp();
        present();
    }

    /// Sends input while this thread runs its loops. What is still edited then is a failure, and is ended.
    void send(const std::function<void()>& actions) {
        const DWORD thread = GetCurrentThreadId();
        std::atomic<bool> is_stuck = false;
        test_support::meanwhile([&] {
            actions();
            is_stuck = !no_editor_within(std::chrono::seconds(5), thread);
            PostThreadMessageW(thread, is_stuck ? WM_QUIT : WM_NULL, 0, 0);
        });
        ASSERT_FALSE(is_stuck) << "a cell is still edited";
    }

    /// From the thread that sends.
    static bool no_editor_within(std::chrono::milliseconds limit, DWORD thread) {
        return test_support::pump_until([thread] { return !is_edit(focus_of(thread)); }, limit);
    }
};

// -- beginning
// ------------------------------------------------------------------------------------------------

TEST_F(cell_editing, begins_with_a_click_on_a_row_that_is_selected) {
    const POINT first = point_in(1, 0);
    const POINT second = point_in(1, 1);
    send([&] { click(window, first); });
    EXPECT_TRUE(is_selected(1));
    EXPECT_THAT(events, IsEmpty());
    send([&] {
        click(window, second);
        strike_key(VK_RETURN);
    });
    EXPECT_THAT(events, ElementsAre("asked 1.1", "took b1", "kept 1"));
}

TEST_F(cell_editing, begins_with_no_click_beside_the_rows) {
    select(0);
    const POINT below{point_in(2, 0).x, label_area(2, 0).bottom + 10};
    send([&] { click(window, below); });
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(cell_editing, does_not_keep_a_double_click_from_the_handler) {
    std::vector<int> rows;
    list->set_on_row_double_click([&](IPanel*, int row) { rows.push_back(row); });
    const POINT point = point_in(1, 0);
    send([&] { test_support::double_click(window, point); });
    EXPECT_THAT(rows, ElementsAre(1));
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(cell_editing, selects_rows_that_cannot_be_edited) {
    list->set_cell_editor_source(nullptr);
    std::vector<int> clicked;
    list->set_on_row_click([&](IPanel*, int row, int) { clicked.push_back(row); });
    const POINT first = point_in(0, 0);
    const POINT second = point_in(0, 1);
    send([&] { click(window, first); });
    send([&] { click(window, second); });
    EXPECT_TRUE(is_selected(0));
    EXPECT_THAT(clicked, ElementsAre(0)) << "the second press is the editor's, which is not there";
    EXPECT_THAT(events, IsEmpty());
}

// -- typing, and the three keys
// -------------------------------------------------------------------------------

TEST_F(cell_editing, takes_what_is_typed_in_place_of_the_text) {
    select(1);
    const POINT point = point_in(1, 0);
    send([&] {
        click(window, point);
        test_support::type_text(L"new");
        strike_key(VK_LEFT);
        test_support::type_text(L"-");
        strike_key(VK_RETURN);
    });
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took ne-w", "kept 1"));
    EXPECT_EQ(cell_text(1, 0), L"ne-w");
    EXPECT_EQ(GetFocus(), window);
}

TEST_F(cell_editing, lets_escape_leave_the_text_alone) {
    select(2);
    const POINT point = point_in(2, 1);
    send([&] {
        click(window, point);
        test_support::type_text(L"new");
        strike_key(VK_ESCAPE);
    });
    EXPECT_THAT(events, ElementsAre("asked 2.1", "left 2"));
    EXPECT_EQ(cell_text(2, 1), L"b2");
}

TEST_F(cell_editing, goes_round_the_table_with_tab) {
    select(0);
    const POINT point = point_in(0, 0);
    send([&] {
        click(window, point);
        test_support::type_text(L"x");
        for (int i = 0; i < 6; ++i) strike_key(VK_TAB);
        strike_key(VK_ESCAPE);
    });
    EXPECT_THAT(events, ElementsAre("asked 0.0", "took x", "kept 0",   //
                                    "asked 0.1", "took b0", "kept 0",  //
                                    "asked 1.0", "took a1", "kept 1",  //
                                    "asked 1.1", "took b1", "kept 1",  //
                                    "asked 2.0", "took a2", "kept 2",  //
                                    "asked 2.1", "took b2", "kept 2",  //
                                    "asked 0.0", "left 0"));
}

TEST_F(cell_editing, goes_round_the_table_backwards_with_shift_and_tab) {
    select(0);
    const POINT point = point_in(0, 0);
    send([&] {
        click(window, point);
        for (int i = 0; i < 3; ++i) strike_key(VK_TAB, {VK_SHIFT});
        test_support::type_text(L"x");
        strike_key(VK_RETURN);
    });
    EXPECT_THAT(events, ElementsAre("asked 0.0", "took a0", "kept 0",  //
                                    "asked 2.1", "took b2", "kept 2",  //
                                    "asked 2.0", "took a2", "kept 2",  //
                                    "asked 1.1", "took x", "kept 1"));
}

TEST_F(cell_editing, passes_over_cells_that_cannot_be_edited) {
    fixed_cells = {"0.1", "1.0", "1.1"};
    select(0);
    const POINT point = point_in(0, 0);
    send([&] {
        click(window, point);
        strike_key(VK_TAB);
        strike_key(VK_TAB, {VK_SHIFT});
        strike_key(VK_ESCAPE);
    });
    EXPECT_THAT(events,
                ElementsAre("asked 0.0", "took a0", "kept 0",                                         //
                            "asked 0.1", "asked 1.0", "asked 1.1", "asked 2.0", "took a2", "kept 2",  //
                            "asked 1.1", "asked 1.0", "asked 0.1", "asked 0.0", "left 0"));
}

TEST_F(cell_editing, lets_other_keys_through) {
    select(0);
    const POINT point = point_in(0, 0);
    send([&] {
        click(window, point);
        strike_key(VK_HOME);
        strike_key(VK_DELETE);
        strike_key(VK_DOWN);
        strike_key(VK_RETURN);
    });
    EXPECT_THAT(events, ElementsAre("asked 0.0", "took 0", "kept 0"));
}

// -- refused texts
// --------------------------------------------------------------------------------------------

TEST_F(cell_editing, stays_on_a_cell_whose_text_is_refused_on_tab) {
    refused_texts = {L"bad"};
    select(0);
    const POINT point = point_in(0, 0);
    send([&] {
        click(window, point);
        test_support::type_text(L"bad");
        strike_key(VK_TAB);
        strike_key(VK_TAB, {VK_SHIFT});
        strike_key(VK_BACK);
        strike_key(VK_TAB);
        strike_key(VK_ESCAPE);
    });
    EXPECT_THAT(events, ElementsAre("asked 0.0", "refused bad", "refused bad", "took ba", "kept 0",  //
                                    "asked 0.1", "left 0"));
}

TEST_F(cell_editing, ends_on_enter_though_the_text_is_refused) {
    refused_texts = {L"bad"};
    select(0);
    const POINT point = point_in(0, 0);
    send([&] {
        click(window, point);
        test_support::type_text(L"bad");
        strike_key(VK_RETURN);
    });
    EXPECT_THAT(events, ElementsAre("asked 0.0", "refused bad"));
    EXPECT_THAT(children_of(window), ElementsAre(header()));
    EXPECT_EQ(cell_text(0, 0), L"a0");
}

// -- the focus goes elsewhere
// ---------------------------------------------------------------------------------

TEST_F(cell_editing, ends_with_a_click_on_another_control_which_gets_it) {
    select(0);
    int clicks = 0;
    button->set_on_click([&](IPanel*) { ++clicks; });
    const POINT point = point_in(0, 0);
    send([&] {
        click(window, point);
        test_support::type_text(L"new");
        click(button_window, {5, 5});
    });
    EXPECT_THAT(events, ElementsAre("asked 0.0", "took new", "kept 0"));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(GetFocus(), button_window);
}

TEST_F(cell_editing, ends_with_a_click_on_another_control_though_the_text_is_refused) {
    refused_texts = {L"bad"};
    select(0);
    const POINT point = point_in(0, 0);
    send([&] {
        click(window, point);
        test_support::type_text(L"bad");
        click(button_window, {5, 5});
    });
    EXPECT_THAT(events, ElementsAre("asked 0.0", "refused bad"));
    EXPECT_THAT(children_of(window), ElementsAre(header()));
}

TEST_F(cell_editing, ends_with_a_click_on_another_cell_of_the_selected_row) {
    select(1);
    const POINT point = point_in(1, 0);
    const POINT other = point_in(1, 1);
    send([&] {
        click(window, point);
        test_support::type_text(L"new");
        click(window, other);
    });
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took new", "kept 1"));
    EXPECT_EQ(GetFocus(), window);
    EXPECT_TRUE(is_selected(1));
}

TEST_F(cell_editing, ends_with_a_click_on_another_row_which_it_selects) {
    select(1);
    const POINT point = point_in(1, 0);
    const POINT other = point_in(2, 1);
    send([&] {
        click(window, point);
        click(window, other);
    });
    EXPECT_THAT(events, ElementsAre("asked 1.0", "took a1", "kept 1"));
    EXPECT_FALSE(is_selected(1));
    EXPECT_TRUE(is_selected(2));
}

TEST_F(cell_editing, goes_on_under_clicks_into_the_text) {
    select(0);
    const POINT point = point_in(0, 0);
    send([&] {
        click(window, point);
        click(window, {point.x + 40, point.y});
        test_support::type_text(L"x");
        strike_key(VK_RETURN);
    });
    EXPECT_THAT(events, ElementsAre("asked 0.0", "took a0x", "kept 0"));
}

// -- the list's own mouse
// -------------------------------------------------------------------------------------

TEST_F(cell_editing, leaves_clicks_on_rows_and_headers_to_their_handlers) {
    std::vector<std::string> told;
    list->set_on_row_click([&](IPanel*, int row, int zero) {
        told.push_back("click " + std::to_string(row) + " " + std::to_string(zero));
    });
    list->set_on_row_right_click([&](IPanel*, int row) { told.push_back("right " + std::to_string(row)); });
    list->set_on_column_click(
        [&](IPanel*, int column) { told.push_back("header " + std::to_string(column)); });
    const POINT row = point_in(2, 0);
    const POINT other = point_in(1, 1);
    const POINT below{row.x, label_area(2, 0).bottom + 10};
    send([&] {
        click(window, row);
        click(window, other, test_support::mouse_button::right);
        click(window, below);
        click(header(), {150, 8});
        click(header(), {20, 8});
    });
    EXPECT_THAT(told, ElementsAre("click 2 0", "right 1", "click -1 0", "header 1", "header 0"));
}

TEST_F(cell_editing, does_not_keep_headers_from_being_moved) {
    test_support::drag(header(), {20, 8}, {180, 8}, 8);
    EXPECT_THAT(list->get_column_order(), ElementsAre(1, 0));
    select(0);
    const POINT point = point_in(0, 1);
    EXPECT_LT(point.x, 100) << "the second column stands first";
    send([&] {
        click(window, point);
        strike_key(VK_RETURN);
    });
    EXPECT_THAT(events, ElementsAre("asked 0.1", "took b0", "kept 0"));
}

}  // namespace
}  // namespace ui::mossHarbour
