// A scroll bar in a real window, under real input.

#include "controls/testing/scroll_window_fixture.h"
#include "d2d/ui/IScrollBar.h"
#include "support/heard_drag.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using test_support::mouse_button;
using positions = std::vector<float>;

class scroll_bar_window_test : public fakes::scroll_window_fixture {
protected:
    using orientation = ui::IScrollBar::orientation;

    void TearDown() override {
        bar.reset();
        scroll_window_fixture::TearDown();
    }

    /// A thumb of 50 on a track of 200 inside its border, half a pixel for a unit.
    void make(orientation direction, float position = 0) {
        const bool is_upright = direction == orientation::vertical;
        bar = ui::create_scroll_bar(direction, {position, 0, 300, 100, 16},
                                    is_upright ? D2D_RECT_F{40, 0, 56, 202} : D2D_RECT_F{0, 40, 202, 56},
                                    nullptr);
        bar->add_position_listener([this](float at) { told.push_back(at); });
        show(bar->get_node());
    }
    [[nodiscard]] positions take_told() { return std::exchange(told, {}); }
    bool reaches(float position) {
        return test_support::pump_until([&] { return bar->get_position() == position; });
    }
    /// Does the thumb come to cover these rows in the middle of an upright bar, rounded corners and all?
    [[nodiscard]] testing::AssertionResult thumb_covers(unsigned first, unsigned last) const {
        const std::pair expected{first, last};
        const auto seen = thumb_rows(test_support::grab_when(
            handle(), [&](const test_support::picture& image) { return thumb_rows(image) == expected; }));
        if (seen == expected) return testing::AssertionSuccess();
        return testing::AssertionFailure() << "it covers " << seen.first << " to " << seen.second;
    }
    static std::pair<unsigned, unsigned> thumb_rows(const test_support::picture& seen) {
        unsigned first = 0;
        while (first < 202 && seen.at(48, first) != thumb_pixel) ++first;
        unsigned last = first;
        while (last < 202 && seen.at(48, last) == thumb_pixel) ++last;
        return {first, last};
    }

    com::ptr<ui::IScrollBar> bar;
    positions told;
};

TEST_F(scroll_bar_window_test, click_on_either_side_of_the_thumb_is_a_page) {
    make(orientation::vertical, 100);  // the thumb covers 51 to 101
    test_support::click(handle(), {48, 150});
    EXPECT_TRUE(reaches(200));
    EXPECT_TRUE(thumb_covers(101, 151));
    test_support::click(handle(), {48, 20});
    EXPECT_TRUE(reaches(100));
    test_support::click(handle(), {48, 20});
    EXPECT_TRUE(reaches(0));
    test_support::click(handle(), {48, 199});
    EXPECT_TRUE(reaches(100)) << "one page, however far";
    EXPECT_EQ((positions{200, 100, 0, 100}), take_told());
}

TEST_F(scroll_bar_window_test, lying_bar_pages_as_well) {
    make(orientation::horizontal, 100);
    test_support::click(handle(), {150, 48});
    EXPECT_TRUE(reaches(200));
    test_support::click(handle(), {20, 48});
    EXPECT_TRUE(reaches(100));
    EXPECT_EQ((positions{200, 100}), take_told());
}

TEST_F(scroll_bar_window_test, double_click_is_two_pages) {
    make(orientation::vertical);
    test_support::double_click(handle(), {48, 190});
    EXPECT_TRUE(reaches(200));
    test_support::pump_until_idle();
    EXPECT_EQ((positions{100, 200}), take_told());
}

TEST_F(scroll_bar_window_test, held_button_does_not_repeat) {
    make(orientation::vertical);
    test_support::move_mouse(handle(), {48, 190});
    test_support::press_mouse();
    test_support::pump_for(std::chrono::milliseconds(700));
    test_support::release_mouse();
    EXPECT_EQ((positions{100}), take_told());
}

TEST_F(scroll_bar_window_test, thumb_stays_under_the_grip) {
    make(orientation::vertical);
    std::vector<std::pair<LONG, float>> seen;  // where the mouse was, and where the bar then was
    bar->add_position_listener([&](float at) {
        POINT mouse{};
        GetCursorPos(&mouse);
        ScreenToClient(handle(), &mouse);
        seen.emplace_back(mouse.y, at);
    });
    test_support::drag(handle(), {48, 20}, {48, 60}, 8);
    EXPECT_EQ(80, bar->get_position());
    EXPECT_TRUE(thumb_covers(41, 91));
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ((std::pair{LONG{60}, 80.0f}), seen.back());
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    for (const float each : told) EXPECT_EQ(each, std::floor(each)) << "pixels are two units";
}

TEST_F(scroll_bar_window_test, thumb_stops_at_the_ends_and_comes_back_under_its_grip) {
    make(orientation::vertical, 100);
    test_support::meanwhile([&] {
        test_support::move_mouse(handle(), {48, 70});
        test_support::press_mouse();
        test_support::move_mouse(handle(), {90, 220});
        test_support::move_mouse(handle(), {90, 400});  // below the window
        test_support::move_mouse(handle(), {-30, 400});
        test_support::move_mouse(handle(), {48, -40});  // above it
        test_support::move_mouse(handle(), {400, 85});  // beside it
        test_support::release_mouse();
    });
    EXPECT_EQ(130, bar->get_position());
    EXPECT_TRUE(thumb_covers(66, 116));
    EXPECT_EQ(300, *std::max_element(told.begin(), told.end()));
    EXPECT_EQ(0, *std::min_element(told.begin(), told.end()));
    // Over.
    told.clear();
    test_support::move_mouse(handle(), {48, 150});
    EXPECT_EQ((positions{}), take_told());
}

TEST_F(scroll_bar_window_test, escape_ends_a_drag_and_leaves_the_thumb) {
    make(orientation::vertical);
    positions after;
    test_support::meanwhile([&] {
        test_support::move_mouse(handle(), {48, 20});
        test_support::press_mouse();
        test_support::move_mouse(handle(), {48, 60});
        test_support::strike_key(VK_ESCAPE);
        test_support::move_mouse(handle(), {48, 100});
        test_support::release_mouse();
    });
    EXPECT_EQ(80, bar->get_position());
    EXPECT_TRUE(thumb_covers(41, 91));
    EXPECT_EQ(nullptr, GetCapture());
    test_support::drag(handle(), {48, 60}, {48, 70});
    EXPECT_EQ(100, bar->get_position());
}

TEST_F(scroll_bar_window_test, lost_capture_ends_a_drag) {
    make(orientation::vertical);
    bar->add_position_listener([&](float) { ReleaseCapture(); });
    test_support::drag(handle(), {48, 20}, {48, 60}, 4);
    EXPECT_EQ((positions{20}), take_told()) << "the first step of ten pixels";
    EXPECT_EQ(20, bar->get_position());
}

TEST_F(scroll_bar_window_test, right_button_jumps_and_then_takes_the_thumb_along) {
    make(orientation::vertical);
    test_support::meanwhile([&] {
        test_support::move_mouse(handle(), {48, 125});
        test_support::press_mouse(mouse_button::right);
        test_support::move_mouse(handle(), {48, 100});
        test_support::move_mouse(handle(), {250, 230});
        test_support::move_mouse(handle(), {48, 75});
        test_support::release_mouse(mouse_button::right);
    });
    // The pixel's middle under the thumb's.
    EXPECT_EQ((positions{201, 151, 300, 101}), take_told());
    EXPECT_EQ(101, bar->get_position());
}

TEST_F(scroll_bar_window_test, right_click_on_the_thumb_centres_it) {
    make(orientation::vertical, 100);  // 51 to 101
    test_support::click(handle(), {48, 90}, mouse_button::right);
    EXPECT_TRUE(reaches(131));
    EXPECT_EQ((positions{131}), take_told());
}

TEST_F(scroll_bar_window_test, middle_button_and_wheel_do_nothing) {
    make(orientation::vertical, 100);
    test_support::click(handle(), {48, 150}, mouse_button::middle);
    test_support::click(handle(), {48, 70}, mouse_button::middle);
    test_support::turn_wheel(-1);
    test_support::turn_horizontal_wheel(1);
    test_support::pump_until_idle();
    EXPECT_EQ((positions{}), take_told());
    EXPECT_EQ(100, bar->get_position());
}

TEST_F(scroll_bar_window_test, only_what_the_thumb_uncovers_changes_on_the_screen) {
    make(orientation::vertical, 100);
    const auto before = picture_with(thumb_pixel, 48, 70);
    test_support::drag(handle(), {48, 70}, {48, 90});
    const auto after = picture_with(thumb_pixel, 48, 120);
    for (unsigned y = 0; y < before.height; ++y) {
        for (unsigned x = 0; x < before.width; ++x) {
            const bool may_change = x >= 41 && x < 55 && y >= 51 && y < 121;
            if (!may_change) {
                ASSERT_EQ(before.at(x, y), after.at(x, y)) << x << ", " << y;
            }
        }
    }
    EXPECT_EQ(track_pixel, after.at(48, 70));
    EXPECT_EQ(thumb_pixel, after.at(48, 71));
    EXPECT_EQ(thumb_pixel, after.at(48, 120));
    EXPECT_EQ(track_pixel, after.at(48, 121));
    EXPECT_EQ(track_pixel, after.at(40, 90));
    EXPECT_EQ(track_pixel, after.at(55, 90));
    EXPECT_EQ(white_pixel, after.at(39, 90));
    EXPECT_EQ(white_pixel, after.at(56, 90));
}

TEST_F(scroll_bar_window_test, listener_may_drop_the_bar_in_a_drag) {
    make(orientation::vertical);
    std::atomic<int> heard = 0;
    bar->add_position_listener([&](float) {
        ++heard;
        bar.reset();
    });
    test_support::drag_as_heard(handle(), {{48, 20}, {48, 40}, {48, 60}}, heard);
    EXPECT_GE(heard, 2) << "the drag goes on";
    told.clear();
    test_support::click(handle(), {48, 150});
    test_support::drag(handle(), {48, 60}, {48, 90});
    EXPECT_EQ((positions{}), take_told());
    EXPECT_TRUE(test_support::shows(handle(), track_pixel, 48, 60)) << "the thumb went with its bar";
}

}  // namespace
}  // namespace d2d
