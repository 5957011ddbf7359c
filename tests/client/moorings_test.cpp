// The example of a list that is edited in place, as its user sees it: real input, and what the program makes
// of it.

#include "modal_call.h"
#include "onlooker.h"
#include "running_program.h"
#include "support/input.h"
#include "support/message_pump.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using client_test::child_window;
using client_test::expect_soon;
using client_test::onlooker;
using client_test::running_program;
using test_support::click;
using test_support::strike_key;

// Text may be smoothed a little differently from one version of the fonts to the next.
constexpr test_support::tolerance fonts{.channel = 24, .pixels = 300};

// In the list.
constexpr int second_row = 33;
constexpr int third_row = 45;
constexpr int header_row = 8;
constexpr int place_column = 40;
constexpr int ship_column = 130;
constexpr int days_column = 215;

class moorings_example : public testing::Test {
protected:
    void SetUp() override {
        SetForegroundWindow(window);
        ASSERT_TRUE(test_support::pump_until([&] { return GetForegroundWindow() == window; }));
        test_support::move_mouse(window, {4, 4});
        ASSERT_TRUE(eye.shows_golden("moorings/start", fonts));
    }

    void expect_line(const std::wstring& expected) const {
        expect_soon(
            [&] {
                wchar_t text[128] = L"";
                GetWindowTextW(line, text, 128);
                return text == expected;
            },
            "another text below the list");
    }
    void select_second_row() const { click(list, {place_column, second_row}); }

    running_program program{L"moorings.exe", L"Moorings"};
    HWND window = program.window();
    HWND list = child_window(window, L"SysListView32", nullptr);
    HWND line = child_window(window, L"Static", nullptr);
    onlooker eye{window};
};

TEST_F(moorings_example, edits_cells_in_place) {
    expect_line(L"4 ships, 21 days");
    select_second_row();
    click(list, {ship_column, second_row});
    test_support::type_text(L"Nixe");
    strike_key(VK_TAB);
    test_support::type_text(L"7");
    strike_key(VK_RETURN);
    expect_line(L"4 ships, 27 days");
    EXPECT_TRUE(eye.shows_golden("moorings/edited", fonts));
}

TEST_F(moorings_example, shows_the_editor_over_its_cell) {
    select_second_row();
    click(list, {ship_column, second_row});
    EXPECT_TRUE(eye.shows_golden("moorings/editing", fonts));
    strike_key(VK_ESCAPE);
}

TEST_F(moorings_example, refuses_days_that_are_no_number) {
    select_second_row();
    click(list, {days_column, second_row});
    test_support::type_text(L"x");
    strike_key(VK_TAB);
    expect_line(L"A text is missing, or is no number of days.");
    strike_key(VK_BACK);
    test_support::type_text(L"2");
    strike_key(VK_TAB);
    expect_line(L"4 ships, 22 days");
    strike_key(VK_ESCAPE);
}

TEST_F(moorings_example, sorts_adds_and_removes) {
    click(list, {days_column, header_row});
    EXPECT_TRUE(eye.shows_golden("moorings/sorted", fonts));
    click(child_window(window, L"BUTTON", L"Add"), {10, 8});
    expect_line(L"5 ships, 22 days");
    select_second_row();  // three days
    click(child_window(window, L"BUTTON", L"Remove"), {10, 8});
    expect_line(L"4 ships, 19 days");
}

TEST_F(moorings_example, takes_a_text_that_is_being_edited_when_a_button_is_clicked) {
    click(list, {place_column, third_row});
    click(list, {days_column, third_row});
    test_support::type_text(L"2");
    click(child_window(window, L"BUTTON", L"Add"), {10, 8});
    expect_line(L"5 ships, 12 days");
}

TEST_F(moorings_example, ends_within_an_edit) {
    select_second_row();
    click(list, {ship_column, second_row});
    ASSERT_TRUE(child_window(list, L"Edit", nullptr));  // what is posted goes ahead of input
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(program.exit_code(), 0u);
}

}  // namespace
