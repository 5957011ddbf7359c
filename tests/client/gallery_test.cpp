// The gallery, as its user sees it: its window, its buttons and labels, and what scrolls.

#include "gallery_fixture.h"

namespace {

using test_support::click;
using test_support::drag;
using test_support::mouse_button;
using test_support::move_mouse;
using test_support::picture;
using test_support::strike_key;

using gallery_example = client_test::gallery_fixture;

TEST_F(gallery_example, opens_with_its_first_page) {
    EXPECT_TRUE(eye.shows_golden("gallery/window", fonts_of_a_page));
}

TEST_F(gallery_example, clicks_latches_and_checks) {
    constexpr RECT push_card{208, 469, 554, 616};
    constexpr RECT check_card{570, 469, 916, 616};
    hover("push_hovered", push_card, {262, 553});
    press("push_clicked", push_card, {262, 553});
    press_again("push_clicked_twice", push_card, {262, 553});
    press("push_latched", push_card, {348, 553});
    press_again("push_unlatched", push_card, {348, 553});
    // What is disabled shows the mouse and takes no press.
    press_in_vain("push_disabled_hovered", push_card, {434, 553}, {348, 553});

    press("check_lamps", check_card, {668, 546}, push_card);
    press("check_no_charts", check_card, {593, 546});
}

TEST_F(gallery_example, steers_the_boat) {
    constexpr RECT card{208, 168, 916, 453};
    press("boat_ahead", card, {294, 421});
    press_again("boat_ahead_again", card, {294, 421});
    press("boat_astern", card, {242, 421});
    press("boat_red", card, {583, 421});
    press("boat_without_hills", card, {778, 421});
    press("boat_anchored", card, {346, 421});
    press_in_vain("boat_anchored_hovered", card, {294, 421}, {346, 421});
}

TEST_F(gallery_example, scrolls_a_page_by_keys_wheel_and_thumb) {
    const picture start = eye.shown();
    change("buttons_end", page, [] { strike_key(VK_END); });
    const picture end = eye.shown();
    strike_key(VK_HOME);
    expect_back(start);
    move_mouse(window, {560, 640});
    change("buttons_wheel", page, [] { test_support::turn_wheel(-1); });
    test_support::turn_wheel(1);
    expect_back(start);
    drag(window, {946, 200}, {946, 660});
    expect_back(end);

    constexpr RECT radio_card{208, 502, 554, 649};
    constexpr RECT enabled_card{570, 502, 916, 649};
    press("radio_slow", radio_card, {296, 579});
    press("radio_full", radio_card, {360, 579});
    press("horn", enabled_card, {640, 586}, radio_card);
    press("horn_disabled", enabled_card, {724, 586});
}

TEST_F(gallery_example, turns_pages_by_keys_around_the_end) {
    const picture start = eye.shown();
    change("labels_by_key", page, navigation, [] { strike_key(VK_TAB, {VK_CONTROL}); });
    strike_key(VK_TAB, {VK_CONTROL, VK_SHIFT});
    expect_back(start);
    strike_key(VK_TAB, {VK_CONTROL, VK_SHIFT});
    EXPECT_TRUE(eye.look_until([&] { return eye.shown() != start; })) << "no last page";
    strike_key(VK_TAB, {VK_CONTROL});
    expect_back(start);
}

TEST_F(gallery_example, changes_labels) {
    constexpr RECT changing_card{570, 167, 916, 393};
    constexpr RECT icon_card{208, 409, 554, 636};
    constexpr RECT group_card{570, 409, 916, 636};
    click(window, labels_button);
    expect_shown("labels");
    press("label_greek", changing_card, {722, 314}, navigation);
    press("label_brick", changing_card, {750, 361});
    press("icon_heart", icon_card, {340, 534}, changing_card);
    press("group_notice", group_card, {674, 605}, icon_card);
    press("group_nothing", group_card, {749, 605});

    strike_key(VK_END);
    expect_shown("labels_end");
    constexpr RECT strip_card{208, 500, 916, 649};
    hover("strip_hovered", strip_card, {332, 601});
    const picture hovered = eye.shown();
    change("strip_pressed", strip_card, [] { test_support::press_mouse(); });
    test_support::release_mouse();
    expect_back(hovered);
}

TEST_F(gallery_example, scrolls_the_chart) {
    constexpr RECT card{208, 168, 916, 562};
    constexpr POINT sea{560, 430};
    click(window, scrolling_button);
    expect_shown("scrolling");
    move_mouse(window, sea);
    const picture start = eye.shown();
    change("chart_down", card, [] { test_support::turn_wheel(-2); });
    test_support::turn_wheel(2);
    expect_back(start);
    press("chart_across_chosen", card, {422, 252}, navigation);
    move_mouse(window, sea);
    change("chart_across", card, [] { test_support::turn_wheel(-3); });
    press("chart_both_ways_chosen", card, {505, 252});
    move_mouse(window, sea);
    change("chart_both_ways", card, [] { test_support::turn_wheel(-1); });
    press("chart_point", card, {746, 252});
    change("chart_dragged", card, [&] { drag(window, {893, 500}, {893, 400}); });
    press("chart_page_left", card, {300, 540});
}

TEST_F(gallery_example, drives_a_tank_by_scroll_bars_and_aligns_content) {
    constexpr RECT tank_card{208, 429, 554, 649};
    constexpr RECT alignment_card{570, 429, 916, 649};
    click(window, scrolling_button);
    expect_shown("scrolling");
    strike_key(VK_END);
    expect_shown("scrolling_end");
    change("tank_red", tank_card, [&] { drag(window, {306, 518}, {386, 540}); });
    press("tank_green", tank_card, {290, 550});
    change("tank_flood", tank_card, [&] { click(window, {460, 510}, mouse_button::right); });

    press("alignment_corner", alignment_card, {884, 586}, navigation);
    press("alignment_large", alignment_card, {594, 626});
    change("alignment_wheel", alignment_card, [&] {
        move_mouse(window, {660, 540});
        test_support::turn_wheel(-3);
    });
}

TEST_F(gallery_example, fits_every_size_and_ends_with_its_window) {
    program.set_position(0, 0, 1250, 1000, 0);
    expect_shown("buttons_large");
    click(window, labels_button);
    move_mouse(window, away);
    expect_shown("labels_large");
    click(window, scrolling_button);
    move_mouse(window, away);
    expect_shown("scrolling_large");
    program.set_position(0, 0, 700, 500, 0);
    expect_shown("scrolling_small");
    program.set_position(0, 0, 100, 100, 0);  // as small as it gets
    expect_shown("scrolling_smallest");
    click(window, labels_button);
    move_mouse(window, away);
    expect_shown("labels_smallest");
    click(window, buttons_button);
    move_mouse(window, away);
    expect_shown("buttons_smallest");

    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(0u, program.exit_code());
}

TEST_F(gallery_example, fits_lists_trees_and_text_into_every_size) {
    program.set_position(0, 0, 1250, 1000, 0);
    expect_shown("buttons_large");
    click(window, lists_button);
    expect_shown("lists_large");
    click(window, tree_button);
    expect_shown("tree_large");
    click(window, text_button);
    expect_shown("text_large");
    program.set_position(0, 0, 100, 100, 0);
    expect_shown("text_smallest");
    strike_key(VK_END);
    expect_shown("text_smallest_end");
    click(window, tree_button);
    strike_key(VK_END);
    expect_shown("tree_smallest_end");
    click(window, lists_button);
    strike_key(VK_NEXT);
    expect_shown("lists_smallest_below");
    strike_key(VK_END);
    expect_shown("lists_smallest_end");
    // The column of the pages' buttons scrolls by itself.
    change("navigation_scrolled", {navigation.left, navigation.top, navigation.right, 333}, [&] {
        move_mouse(window, {10, 200});
        for (int i = 0; i < 3; ++i) test_support::turn_wheel(-1);
    });
}

}  // namespace
