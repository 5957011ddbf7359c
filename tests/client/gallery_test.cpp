// The gallery, as its user sees it: real input on every page, and what shows of it.

#include "onlooker.h"
#include "running_program.h"
#include "support/input.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using client_test::awaited_golden;
using client_test::likeness;
using client_test::onlooker;
using client_test::part;
using client_test::running_program;
using test_support::click;
using test_support::drag;
using test_support::mouse_button;
using test_support::move_mouse;
using test_support::picture;
using test_support::strike_key;

// Text may be smoothed a little differently from one version of the fonts to the next.
constexpr test_support::tolerance fonts_of_a_card{.channel = 24, .pixels = 60};
constexpr test_support::tolerance fonts_of_a_page{.channel = 24, .pixels = 300};

constexpr POINT away{500, 30};  // a place without a control
constexpr POINT buttons_button{92, 122};
constexpr POINT labels_button{92, 166};
constexpr POINT scrolling_button{92, 210};
// The column of the pages' buttons is compared by itself: it is longer with each page that comes.
constexpr RECT navigation{0, 80, 184, 673};
constexpr RECT page{184, 80, 952, 673};

bool in_one_of(std::initializer_list<RECT> rects, POINT point) {
    return std::any_of(rects.begin(), rects.end(), [&](const RECT& rect) { return PtInRect(&rect, point); });
}

unsigned differences_outside(const picture& a, const picture& b, std::initializer_list<RECT> rects) {
    unsigned count = 0;
    for (unsigned y = 0; y < a.height; ++y)
        for (unsigned x = 0; x < a.width; ++x)
            if (a.at(x, y) != b.at(x, y) && !in_one_of(rects, {static_cast<LONG>(x), static_cast<LONG>(y)}))
                ++count;
    return count;
}

class gallery_example : public testing::Test {
protected:
    void SetUp() override {
        SetForegroundWindow(window);
        ASSERT_TRUE(test_support::pump_until([&] { return GetForegroundWindow() == window; }));
        move_mouse(window, away);
        expect_shown("buttons");
    }

    /// Compares all that is right of the pages' buttons.
    void expect_shown(std::string_view golden) {
        const awaited_golden expected("gallery/" + std::string(golden), fonts_of_a_page);
        const auto seen = [&] { return part(eye.shown(), {page.left, 0, width(), height()}); };
        eye.look_until_like([&] { return expected.likeness_of(seen()); });
        EXPECT_TRUE(expected.matches(seen()));
    }

    [[nodiscard]] LONG width() const { return static_cast<LONG>(eye.shown().width); }
    [[nodiscard]] LONG height() const { return static_cast<LONG>(eye.shown().height); }

    void expect_back(const picture& earlier) { EXPECT_TRUE(eye.shows_again(earlier)); }

    /// Does something that changes `card`, and compares that. Nothing else changes, except in `last`, where
    /// the focus has been.
    template <class Action>
    void change(std::string_view golden, RECT card, RECT last, Action&& action) {
        SCOPED_TRACE(golden);
        const awaited_golden expected("gallery/" + std::string(golden), fonts_of_a_card);
        const picture before = eye.shown();
        action();
        eye.look_until_like([&] {
            return eye.shown() == before ? likeness::none : expected.likeness_of(part(eye.shown(), card));
        });
        const picture& shown = eye.shown();
        ASSERT_EQ(before.width, shown.width);
        ASSERT_EQ(before.height, shown.height);
        const picture now = part(shown, card);
        EXPECT_TRUE(part(before, card) != now) << "nothing changes";
        EXPECT_TRUE(expected.matches(now));
        EXPECT_EQ(0u, differences_outside(before, shown, {card, last}));
    }

    template <class Action>
    void change(std::string_view golden, RECT card, Action&& action) {
        change(golden, card, {}, std::forward<Action>(action));
    }

    /// The same of a click.
    void press(std::string_view golden, RECT card, POINT button, RECT last = {}) {
        change(golden, card, last, [&] { click(window, button); });
    }

    /// A press beside the last one: buttons do not count the second press of a double click.
    void press_again(std::string_view golden, RECT card, POINT button) {
        press(golden, card, {button.x + 6, button.y});
    }

    /// Clicks what is disabled, and leaves it again: everything is as it was ahead of it.
    void press_in_vain(std::string_view hovered, RECT card, POINT button, POINT back) {
        const picture before = eye.shown();
        change(hovered, card, [&] { move_mouse(window, button); });
        click(window, button);
        move_mouse(window, back);
        expect_back(before);
    }

    running_program program{L"gallery.exe", L"Gallery"};
    HWND window = program.window();
    onlooker eye{window};
};

TEST_F(gallery_example, opens_with_its_first_page) {
    EXPECT_TRUE(eye.shows_golden("gallery/window", fonts_of_a_page));
}

TEST_F(gallery_example, clicks_latches_and_checks) {
    constexpr RECT push_card{208, 469, 554, 616};
    constexpr RECT check_card{570, 469, 916, 616};
    change("push_hovered", push_card, [&] { move_mouse(window, {262, 553}); });
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
    change("strip_hovered", strip_card, [&] { move_mouse(window, {332, 601}); });
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

}  // namespace
