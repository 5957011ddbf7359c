// Lists: columns, rows, what they tell and how large they want to be.

#include "portable/control_window.h"
#include "portable/length.h"
#include "portable/testing/list_fixture.h"
#include "portable/testing/stub_element.h"
#include "portable/testing/told_sizes.h"
#include "ui/mossHarbour/IGroupBoxControl.h"
#include "ui/mossHarbour/IPushButtonControl.h"

#include <optional>
#include <stdexcept>

namespace ui::mossHarbour {
namespace {

using stubs::fields_of;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

class list_view : public list_fixture {
protected:
    void SetUp() override {
        list_fixture::SetUp();
        show_list();
    }

    /// Which column stands at each place.
    [[nodiscard]] std::vector<int> columns_at_places() const {
        std::vector<int> columns(3);
        ask(LVM_GETCOLUMNORDERARRAY, 3, reinterpret_cast<LPARAM>(columns.data()));
        return columns;
    }
};

TEST_F(list_view, has_headers_that_can_be_moved_and_rows_that_are_selected_whole) {
    EXPECT_EQ(ask(LVM_GETEXTENDEDLISTVIEWSTYLE), LVS_EX_HEADERDRAGDROP | LVS_EX_FULLROWSELECT);
    EXPECT_EQ(ask(LVM_GETEXTENDEDLISTVIEWSTYLE), 48);
}

// -- columns
// --------------------------------------------------------------------------------------------------

TEST_F(list_view, takes_columns_at_their_places) {
    list->add_column(L"b", 0, 50);
    list->add_column(L"a", 0, 40);
    list->add_column(L"c", 2, 60);
    EXPECT_THAT((std::vector{caption(0), caption(1), caption(2)}), ElementsAre(L"a", L"b", L"c"));
    EXPECT_THAT(list->get_column_widths(), ElementsAre(40, 50, 60));
    list->set_column_text(1, L"second");
    EXPECT_EQ(caption(1), L"second");
    list->remove_column(0);
    EXPECT_THAT((std::vector{caption(0), caption(1), caption(2)}), ElementsAre(L"second", L"c", L"(none)"));
    EXPECT_THAT(list->get_column_widths(), ElementsAre(50, 60));
    list->remove_column(1);
    list->remove_column(0);
    EXPECT_THAT(list->get_column_widths(), IsEmpty());
    EXPECT_THAT(list->get_column_order(), IsEmpty());
}

TEST_F(list_view, takes_widths_in_pixels_and_in_parts_of_the_font_s_height) {
    list->add_column(L"pixels", 0, 70);
    list->add_column(L"font", 1, font_percent(600));
    list->add_column(L"half", 2, font_percent(50));
    list->add_column(L"none", 3, 0);
    EXPECT_THAT(list->get_column_widths(), ElementsAre(70, 6 * font_height, font_height / 2, 0));
}

TEST_F(list_view, gives_a_column_its_width_where_it_comes_to_stand) {
    add_columns({L"a", L"b"}, 40);
    list->add_column(L"last", 99, 70);
    EXPECT_EQ(caption(2), L"last");
    EXPECT_THAT(list->get_column_widths(), ElementsAre(40, 40, 70));
}

TEST_F(list_view, takes_sixteen_bits_of_a_width) {
    list->add_column(L"cut", 0, 0x20000 + 30);
    EXPECT_THAT(list->get_column_widths(), ElementsAre(30));
}

TEST_F(list_view, counts_the_columns_that_are_there) {
    add_columns({L"a", L"b"}, 40);
    list->remove_column(7);
    list->remove_column(-1);
    EXPECT_THAT(list->get_column_widths(), ElementsAre(40, 40));
}

TEST_F(list_view, tells_at_which_place_each_column_stands) {
    add_columns({L"a", L"b", L"c"});
    EXPECT_THAT(list->get_column_order(), ElementsAre(0, 1, 2));
    int columns[] = {2, 0, 1};
    ASSERT_TRUE(ask(LVM_SETCOLUMNORDERARRAY, 3, reinterpret_cast<LPARAM>(columns)));
    EXPECT_THAT(list->get_column_order(), ElementsAre(1, 2, 0));
    list->set_column_order({2, 0, 1});
    EXPECT_THAT(columns_at_places(), ElementsAre(1, 2, 0));
    EXPECT_THAT(list->get_column_order(), ElementsAre(2, 0, 1));
    list->set_column_order(list->get_column_order());
    EXPECT_THAT(list->get_column_order(), ElementsAre(2, 0, 1));
    EXPECT_THAT((std::vector{caption(0), caption(1), caption(2)}), ElementsAre(L"a", L"b", L"c"));
}

TEST_F(list_view, shows_its_rows_anew_when_columns_change_places) {
    stack_item_details large;
    large.min_width = 200;
    large.min_height = large.max_height = 150;
    show_list(large);
    add_columns({L"a", L"b"}, 70);
    for (int i = 0; i < 3; ++i) add_row({L"x", L"y"});
    present();
    UpdateWindow(window);
    ASSERT_FALSE(GetUpdateRect(window, nullptr, FALSE));
    list->set_column_order({1, 0});
    RECT stale{};
    GetUpdateRect(window, &stale, FALSE);
    for (const int row : {0, 1, 2}) {
        const RECT area = label_area(row, 0);
        EXPECT_TRUE(PtInRect(&stale, {area.left, area.top})) << row;
        EXPECT_TRUE(PtInRect(&stale, {area.right - 1, area.bottom - 1})) << row;
    }
}

TEST_F(list_view, refuses_places_that_are_not_there) {
    add_columns({L"a", L"b", L"c"});
    EXPECT_THROW(list->set_column_order({0, 1, 3}), std::out_of_range);
    EXPECT_THROW(list->set_column_order({0, -1, 2}), std::out_of_range);
    EXPECT_THAT(list->get_column_order(), ElementsAre(0, 1, 2));
}

// -- rows
// -----------------------------------------------------------------------------------------------------

TEST_F(list_view, takes_rows_with_their_texts) {
    add_columns({L"a", L"b", L"c"});
    const wchar_t* first[] = {L"a0", L"b0", L"c0"};
    const wchar_t* second[] = {L"a1", L"b1", L"c1"};
    EXPECT_EQ(list->add_row(first, 3, 0), 0);
    EXPECT_EQ(list->add_row(second, 2, 1), 1);
    EXPECT_EQ(list->add_row(first, 1, 1), 1);
    EXPECT_EQ(list->add_row(second, 3, 100), 3);
    EXPECT_THAT(column_texts(0), ElementsAre(L"a0", L"a0", L"a1", L"a1"));
    EXPECT_THAT(column_texts(1), ElementsAre(L"b0", L"", L"b1", L"b1"));
    EXPECT_THAT(column_texts(2), ElementsAre(L"c0", L"", L"", L"c1"));
    list->remove_row(2);
    EXPECT_THAT(column_texts(2), ElementsAre(L"c0", L"", L"c1"));
}

TEST_F(list_view, takes_a_row_that_is_filled_in_later) {
    add_columns({L"a", L"b"});
    EXPECT_EQ(list->add_row(nullptr, 0, 0), 0);
    EXPECT_EQ(cell_text(0, 0), L"fook");
    EXPECT_EQ(list->get_row_data(0), 0);
    EXPECT_EQ(list->add_row(nullptr, 2, 1), 1);
    EXPECT_EQ(cell_text(1, 0), L"fook");
    EXPECT_EQ(cell_text(1, 1), L"");
    list->set_cell_text(0, 0, L"first");
    list->set_cell_text(0, 1, L"second");
    EXPECT_EQ(cell_text(0, 0), L"first");
    EXPECT_EQ(cell_text(0, 1), L"second");
    EXPECT_EQ(cell_text(1, 0), L"fook");
}

TEST_F(list_view, gives_each_row_the_number_it_came_at_as_its_data) {
    add_columns({L"a"});
    add_row({L"x"});
    add_row({L"y"});
    EXPECT_EQ(list->get_row_data(0), 0);
    EXPECT_EQ(list->get_row_data(1), 1);
    const wchar_t* text = L"z";
    list->add_row(&text, 1, 1);
    EXPECT_EQ(list->get_row_data(1), 1);
    EXPECT_EQ(list->get_row_data(2), 1) << "data stays with its row";
    const auto largest = std::numeric_limits<LPARAM>::max();
    list->set_row_data(2, largest);
    list->set_row_data(0, -7);
    EXPECT_EQ(list->get_row_data(0), -7);
    EXPECT_EQ(list->get_row_data(2), largest);
    EXPECT_THAT(column_texts(0), ElementsAre(L"x", L"z", L"y"));
    list->remove_row(0);
    EXPECT_EQ(list->get_row_data(1), largest);
    EXPECT_EQ(list->get_row_data(5), 0) << "no such row";
}

TEST_F(list_view, asks_for_the_selected_rows_until_one_is_taken) {
    add_columns({L"a"});
    std::vector<int> asked;
    const auto any = [&](int taken) {
        asked.clear();
        return list->any_selected_row([&](const int& row) {
            asked.push_back(row);
            return row == taken;
        });
    };
    EXPECT_FALSE(any(0));
    for (int i = 0; i < 5; ++i) add_row({L"x"});
    EXPECT_FALSE(any(0));
    EXPECT_THAT(asked, IsEmpty());
    for (const int row : {4, 0, 2}) select(row);
    EXPECT_FALSE(any(-1));
    EXPECT_THAT(asked, ElementsAre(0, 2, 4));
    EXPECT_TRUE(any(2));
    EXPECT_THAT(asked, ElementsAre(0, 2));
    EXPECT_TRUE(any(0));
    EXPECT_THAT(asked, ElementsAre(0));
}

TEST_F(list_view, lets_rows_and_itself_be_removed_while_it_asks) {
    add_columns({L"a"});
    for (int i = 0; i < 3; ++i) add_row({L"x"});
    for (int i = 0; i < 3; ++i) select(i);
    EXPECT_FALSE(list->any_selected_row([&](const int& row) {
        list->remove_row(row);
        return false;
    }));
    EXPECT_EQ(row_count(), 1) << "the row behind a removed one takes its number";
    int calls = 0;
    EXPECT_FALSE(list->any_selected_row([&](const int&) {
        panel->set_content(nullptr);
        ++calls;
        return false;
    }));
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(IsWindow(window));
}

// -- sorting
// --------------------------------------------------------------------------------------------------

TEST_F(list_view, sorts_rows_by_their_data) {
    add_columns({L"a", L"b"});
    const wchar_t* texts[][2] = {{L"x", L"5"}, {L"y", L"-3"}, {L"z", L"9"}, {L"w", L"0"}};
    const LPARAM data[] = {5, -3, 9, 0};
    for (int i = 0; i < 4; ++i) {
        list->add_row(texts[i], 2, i);
        list->set_row_data(i, data[i]);
    }
    list->sort_rows([](LPARAM a, LPARAM b) { return a < b ? -1 : a > b ? 1 : 0; });
    EXPECT_THAT(column_texts(0), ElementsAre(L"y", L"w", L"x", L"z"));
    EXPECT_THAT(column_texts(1), ElementsAre(L"-3", L"0", L"5", L"9"));
    list->sort_rows([](LPARAM a, LPARAM b) { return a > b ? -1 : a < b ? 1 : 0; });
    EXPECT_THAT(column_texts(0), ElementsAre(L"z", L"x", L"w", L"y"));
    EXPECT_EQ(list->get_row_data(0), 9);
}

TEST_F(list_view, passes_on_what_a_comparison_throws) {
    add_columns({L"a"});
    for (int i = 0; i < 6; ++i) add_row({L"x"});
    int calls = 0;
    const auto failing = [&](LPARAM, LPARAM) -> int {
        ++calls;
        throw std::runtime_error("no order");
    };
    EXPECT_THAT([&] { list->sort_rows(failing); }, ThrowsMessage<std::runtime_error>("no order"));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(row_count(), 6);
    EXPECT_THROW(list->sort_rows({}), std::bad_function_call);
}

void click_header(HWND panel_window, HWND from, int column) {
    NMLISTVIEW notification{};
    notification.hdr = {from, 0, static_cast<UINT>(LVN_COLUMNCLICK)};
    notification.iItem = -1;
    notification.iSubItem = column;
    SendMessageW(panel_window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

TEST_F(list_view, sorts_by_the_clicked_column_s_texts_whatever_their_case) {
    add_columns({L"a", L"b"});
    add_row({L"pear", L"3"});
    add_row({L"Apple", L"10"});
    add_row({L"fig", L""});
    add_row({L"Pea", L"2"});
    click_header(panel->get_window_handle(), window, 0);
    EXPECT_THAT(column_texts(0), ElementsAre(L"Apple", L"fig", L"Pea", L"pear"));
    EXPECT_THAT(column_texts(1), ElementsAre(L"10", L"", L"2", L"3"));
    click_header(panel->get_window_handle(), window, 1);
    EXPECT_THAT(column_texts(1), ElementsAre(L"", L"10", L"2", L"3"));
    EXPECT_THAT(column_texts(0), ElementsAre(L"fig", L"Apple", L"Pea", L"pear"));
}

TEST_F(list_view, leaves_rows_that_have_the_same_data_as_they_are) {
    add_columns({L"a"});
    for (const wchar_t* text : {L"a", L"b", L"c"}) list->add_row(&text, 1, 0);
    EXPECT_THAT(column_texts(0), ElementsAre(L"c", L"b", L"a"));
    click_header(panel->get_window_handle(), window, 0);
    EXPECT_THAT(column_texts(0), ElementsAre(L"c", L"b", L"a"));
    for (int i = 0; i < 3; ++i) list->set_row_data(i, i);
    click_header(panel->get_window_handle(), window, 0);
    EXPECT_THAT(column_texts(0), ElementsAre(L"a", L"b", L"c"));
}

TEST_F(list_view, compares_texts_as_far_as_259_units) {
    add_columns({L"a"});
    const std::wstring common(258, L'x');
    for (const wchar_t* const end : {L"b2", L"b1", L"a3"}) add_row({(common + end).c_str()});
    click_header(panel->get_window_handle(), window, 0);
    EXPECT_THAT(column_texts(0), ElementsAre(common + L"a3", common + L"b2", common + L"b1"));
}

TEST_F(list_view, leaves_the_sorting_to_a_handler_of_header_clicks) {
    add_columns({L"a", L"b"});
    add_row({L"b", L"x"});
    add_row({L"a", L"y"});
    std::vector<int> clicked;
    list->set_on_column_click([&](IPanel* in, int column) {
        EXPECT_EQ(in, panel.get());
        clicked.push_back(column);
    });
    click_header(panel->get_window_handle(), window, 1);
    click_header(panel->get_window_handle(), window, 0);
    EXPECT_THAT(clicked, ElementsAre(1, 0));
    EXPECT_THAT(column_texts(0), ElementsAre(L"b", L"a"));
    list->set_on_column_click(nullptr);
    click_header(panel->get_window_handle(), window, 0);
    EXPECT_THAT(column_texts(0), ElementsAre(L"a", L"b"));
}

// -- what it tells
// --------------------------------------------------------------------------------------------

struct told {
    std::vector<std::string> events;

    void listen_to(IListViewControl& list, IPanel* panel) {
        const auto note = [this, panel](std::string event, IPanel* in) {
            EXPECT_EQ(in, panel);
            events.push_back(std::move(event));
        };
        list.set_on_row_click([note](IPanel* in, int row, int zero) {
            note("click " + std::to_string(row) + " " + std::to_string(zero), in);
        });
        list.set_on_row_double_click(
            [note](IPanel* in, int row) { note("double click " + std::to_string(row), in); });
        list.set_on_row_right_click(
            [note](IPanel* in, int row) { note("right click " + std::to_string(row), in); });
        list.set_on_column_click(
            [note](IPanel* in, int column) { note("header " + std::to_string(column), in); });
    }
};

struct code_case {
    UINT code;
    const char* event;  // null where the code is not handled
};

TEST_F(list_view, handles_four_notifications) {
    told heard;
    heard.listen_to(*list, panel.get());
    const code_case cases[] = {{static_cast<UINT>(-2), "click 3 0"},
                               {static_cast<UINT>(-3), "double click 3"},
                               {static_cast<UINT>(-5), "right click 3"},
                               {static_cast<UINT>(-108), "header 1"},
                               {static_cast<UINT>(NM_RDBLCLK), nullptr},
                               {static_cast<UINT>(NM_RETURN), nullptr},
                               {static_cast<UINT>(NM_SETFOCUS), nullptr},
                               {static_cast<UINT>(LVN_ITEMCHANGED), nullptr},
                               {static_cast<UINT>(LVN_BEGINLABELEDITW), nullptr},
                               {static_cast<UINT>(HDN_ITEMCLICKW), nullptr}};
    for (const auto& [code, event] : cases) {
        heard.events.clear();
        NMITEMACTIVATE notification{};
        notification.hdr = {window, 0, code};
        notification.iItem = 3;
        notification.iSubItem = 1;
        const auto result = route_notification(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
        EXPECT_EQ(result, event ? std::optional<LRESULT>(0) : std::nullopt) << static_cast<int>(code);
        EXPECT_EQ(heard.events, event ? std::vector<std::string>{event} : std::vector<std::string>())
            << static_cast<int>(code);
    }
}

TEST_F(list_view, tells_nothing_without_handlers) {
    for (const int code : {-2, -3, -5}) {
        NMITEMACTIVATE notification{};
        notification.hdr = {window, 0, static_cast<UINT>(code)};
        EXPECT_EQ(route_notification(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification)), 0) << code;
    }
}

TEST_F(list_view, takes_a_header_s_notification_for_no_click_on_a_row) {
    told heard;
    heard.listen_to(*list, panel.get());
    for (const int code : {-2, -3, -5}) {
        NMHDR notification{header(), 0, static_cast<UINT>(code)};
        SendMessageW(window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    }
    EXPECT_THAT(heard.events, IsEmpty());
}

TEST_F(list_view, within_a_group_box_is_heard_as_well) {
    told heard;
    heard.listen_to(*list, panel.get());
    const auto group = create_group_box_control();
    group->set_content(stack_of({list}));
    const HWND frame = show({group}).front();
    NMITEMACTIVATE notification{};
    notification.hdr = {children_of(frame).front(), 0, static_cast<UINT>(NM_CLICK)};
    notification.iItem = 2;
    SendMessageW(frame, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    EXPECT_THAT(heard.events, ElementsAre("click 2 0"));
    panel->set_content(nullptr);
    group->set_content(nullptr);
}

TEST_F(list_view, may_go_with_its_panel_in_a_handler) {
    add_columns({L"a"});
    list->set_on_row_click([&](IPanel*, int, int) {
        panel.reset();
        list.reset();
    });
    NMITEMACTIVATE notification{};
    notification.hdr = {window, 0, static_cast<UINT>(NM_CLICK)};
    SendMessageW(GetParent(window), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(list_view, comes_back_blank_with_its_handlers) {
    told heard;
    heard.listen_to(*list, panel.get());
    add_columns({L"a", L"b"});
    add_row({L"x"});
    panel->set_content(nullptr);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THROW(list->get_column_widths(), std::logic_error);
    show_list();
    EXPECT_THAT(list->get_column_widths(), IsEmpty());
    EXPECT_EQ(row_count(), 0);
    NMITEMACTIVATE notification{};
    notification.hdr = {window, 0, static_cast<UINT>(NM_RCLICK)};
    SendMessageW(panel->get_window_handle(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
    EXPECT_THAT(heard.events, ElementsAre("right click 0"));
}

// -- size
// -----------------------------------------------------------------------------------------------------

TEST_F(list_view, measures_its_columns_and_rows) {
    const auto measured = [this](measure_context& context) {
        return fields_of(com::ptr<IMaterializedElement>(widget_of(window))->measure(context));
    };
    told_sizes sizes;
    EXPECT_EQ(measured(sizes), metrics_of({18, 22}, {unbounded_extent, 22}, {18, 24}));
    add_columns({L"wide caption", L"b"}, 70);
    EXPECT_EQ(measured(sizes), metrics_of({18, 22}, {unbounded_extent, 22}, {150, 24}));
    add_row({L"x", L"a text in the second column"});
    add_row({L"tall", L"y"});
    EXPECT_EQ(measured(sizes), metrics_of({18, 22}, {unbounded_extent, 22}, {150, 24 + 24 + 24}));
    told_sizes uneven({{L"tall", {5, 50}}, {L"y", {5, 90}}});
    EXPECT_EQ(measured(uneven), metrics_of({18, 22}, {unbounded_extent, 22}, {150, 24 + 24 + 58}));
    told_sizes large_m({{L"M", {200, 300}}});
    EXPECT_EQ(measured(large_m), metrics_of({208, 306}, {unbounded_extent, 306}, {208, 306}));
}

TEST_F(list_view, measures_255_units_of_a_text) {
    add_columns({L"a"}, 70);
    const std::wstring text(300, L'x');
    add_row({text.c_str()});
    told_sizes sizes(std::map<std::wstring, SIZE>{{text.substr(0, 255), {1, 100}}});
    const auto metrics = com::ptr<IMaterializedElement>(widget_of(window))->measure(sizes);
    EXPECT_EQ(metrics.preferred_height, 24 + 108);
}

TEST_F(list_view, is_a_line_high_unless_its_item_says_otherwise) {
    const auto heights = [this] {
        const element_metrics metrics = panel->measure();
        return std::vector{metrics.min_height, metrics.preferred_height, metrics.max_height};
    };
    add_columns({L"a"}, 70);
    for (int i = 0; i < 3; ++i) add_row({L"x"});
    const int line = font_height + 6;
    EXPECT_THAT(heights(), ElementsAre(line, line, line));
    stack_item_details whole;
    whole.max_height = use_preferred;
    show_list(whole);
    add_columns({L"a"}, 70);
    for (int i = 0; i < 3; ++i) add_row({L"x"});
    const int all = 24 + 3 * (font_height + 8);
    EXPECT_THAT(heights(), ElementsAre(line, all, all));
}

}  // namespace
}  // namespace ui::mossHarbour
