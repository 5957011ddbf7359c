// The gallery's page of lists: rows that are selected, added and sorted.

#include "gallery_fixture.h"

namespace {

using test_support::click;
using test_support::mouse_button;
using test_support::move_mouse;
using test_support::picture;
using test_support::turn_wheel;

class gallery_lists : public client_test::gallery_fixture {
protected:
    static constexpr RECT list_card{208, 167, 560, 376};
    static constexpr RECT log_card{576, 167, 928, 376};
    static constexpr RECT table_card{208, 392, 928, 649};

    void SetUp() override {
        gallery_fixture::SetUp();
        open_page("lists", lists_button);
    }

    static POINT row_of_list(int row) { return {260, 247 + 19 * row}; }
    static POINT row_of_table(int row) { return {290, 493 + 17 * row}; }
};

TEST_F(gallery_lists, selects_a_row_of_a_list_and_scrolls_it) {
    hover("list_hovered", list_card, row_of_list(1), navigation);
    press("list_selected", list_card, row_of_list(1), navigation);
    hover("list_other_hovered", list_card, row_of_list(3));
    click(window, row_of_list(3), mouse_button::right);  // selects nothing
    press("list_other_selected", list_card, row_of_list(2));
    change("list_scrolled", list_card, [] { turn_wheel(-3); });
    press("list_selected_below", list_card, {260, 297});
}

TEST_F(gallery_lists, adds_rows_first_third_and_last_and_clears_them) {
    press("log_first", log_card, {618, 346}, navigation);
    press("log_third", log_card, {680, 346});
    press("log_last", log_card, {741, 346});
    press("log_selected", log_card, {640, 266});
    press("log_cleared", log_card, {804, 346});
    press("log_begun_again", log_card, {741, 346});
}

TEST_F(gallery_lists, selects_rows_of_a_table_alone_and_says_so_at_once) {
    hover("table_hovered", table_card, row_of_table(2), navigation);
    press("table_selected", table_card, row_of_table(2), navigation);
    press("table_other_selected", table_card, row_of_table(0));
    hover("table_hovered_beside", table_card, row_of_table(4));
    change("table_scrolled", table_card, [] { turn_wheel(-2); });
    change("table_dragged", table_card, [&] { test_support::drag(window, {905, 478}, {905, 590}); });
    press("table_last_selected", table_card, {290, 568});
}

TEST_F(gallery_lists, selects_several_rows_with_control_and_shift) {
    press("table_several", table_card, {232, 626}, navigation);
    press("table_one", table_card, row_of_table(1));
    change("table_with_control", table_card,
           [&] { click(window, row_of_table(3), mouse_button::left, {VK_CONTROL}); });
    change("table_with_shift", table_card,
           [&] { click(window, row_of_table(0), mouse_button::left, {VK_SHIFT}); });
    change("table_without_one", table_card,
           [&] { click(window, row_of_table(2), mouse_button::left, {VK_CONTROL}); });
    press("table_one_again", table_card, row_of_table(4));
}

TEST_F(gallery_lists, sorts_a_table_by_the_heading_that_is_clicked) {
    press("table_other_selected_first", table_card, row_of_table(0), navigation);
    press("table_by_country", table_card, {352, 472});
    press("table_by_depth", table_card, {584, 472});
    press("table_by_depth_down", table_card, {590, 472});
    press("table_by_ships", table_card, {663, 472});
    press("table_by_name", table_card, {258, 472});
    press("table_by_name_down", table_card, {264, 472});
}

}  // namespace
