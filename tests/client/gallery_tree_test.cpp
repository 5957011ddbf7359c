// The gallery's page of a tree: rows that are opened, selected and dragged.

#include "gallery_fixture.h"

namespace {

using test_support::click;
using test_support::drag;
using test_support::mouse_button;
using test_support::move_mouse;
using test_support::strike_key;
using test_support::turn_wheel;

class gallery_tree : public client_test::gallery_fixture {
protected:
    static constexpr RECT card{208, 167, 928, 649};
    // Rows as the page opens.
    static constexpr POINT fore_hold{308, 314};
    static constexpr POINT lamps{316, 350};
    static constexpr POINT tar{310, 422};
    static constexpr POINT main_hold{308, 476};
    static constexpr POINT alcyone_expander{245, 296};
    static constexpr POINT fore_hold_expander{257, 313};
    static constexpr POINT nothing{700, 560};

    void SetUp() override {
        gallery_fixture::SetUp();
        open_page("tree", tree_button);
    }

    /// Presses a row and waits until the mouse carries it.
    void take(std::string_view golden, POINT row) {
        move_mouse(window, row);
        test_support::press_mouse();
        hover(golden, card, {row.x + 60, row.y + 20}, navigation);
    }
};

TEST_F(gallery_tree, selects_the_row_that_is_pressed_while_it_has_the_focus) {
    hover("tree_hovered", card, lamps, navigation);
    press("tree_selected", card, lamps, navigation);
    press("tree_other_selected", card, main_hold);
    press("tree_menu", card, lamps);
    change("tree_menu_asked", card, [&] { click(window, tar, mouse_button::right); });
    change("tree_without_focus", card, navigation, [&] { click(window, tree_button); });
}

TEST_F(gallery_tree, opens_and_closes_rows_and_fills_them_as_they_open) {
    press("tree_hold_closed", card, fore_hold_expander, navigation);
    // Beside the last press: a double click is no press.
    press("tree_hold_open", card, {fore_hold_expander.x + 4, fore_hold_expander.y + 3});
    press("tree_ship_closed", card, alcyone_expander);
    press("tree_ship_filled", card, {245, 314});
    press("tree_hold_filled", card, {259, 350});
    press("tree_crate_selected", card, {316, 404});
}

TEST_F(gallery_tree, scrolls_by_the_wheel) {
    move_mouse(window, nothing);
    change("tree_scrolled", card, navigation, [] { turn_wheel(-4); });
    press("tree_aft_hold_filled", card, {259, 601}, navigation);
}

TEST_F(gallery_tree, a_press_that_leaves_the_expander_opens_nothing) {
    const auto before = eye.shown();
    drag(window, alcyone_expander, {560, 296});
    move_mouse(window, tree_button);
    expect_back(before);
}

TEST_F(gallery_tree, moves_a_row_that_is_dragged_to_another_parent) {
    take("tree_lamps_taken", lamps);
    change("tree_in_a_drag", card, [&] { move_mouse(window, main_hold); });
    change("tree_dropped", card, [&] {
        test_support::release_mouse();
        move_mouse(window, nothing);
    });
}

TEST_F(gallery_tree, leaves_a_row_where_it_is_that_is_dropped_on_its_like) {
    take("tree_hold_taken", fore_hold);
    change("tree_dropped_in_vain", card, [&] {
        move_mouse(window, main_hold);
        test_support::release_mouse();
        move_mouse(window, nothing);
    });
}

TEST_F(gallery_tree, leaves_a_row_where_it_is_when_escape_ends_the_drag) {
    take("tree_tar_taken", tar);
    change("tree_drag_escaped", card, [&] {
        move_mouse(window, main_hold);
        strike_key(VK_ESCAPE);
        test_support::release_mouse();
        move_mouse(window, nothing);
    });
}

}  // namespace
