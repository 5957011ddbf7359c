// A scroll area in a real window, under real input.

#include "controls/testing/scroll_window_fixture.h"
#include "d2d/ui/IScrollArea.h"
#include "scene/testing/call_text.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::call_text;
using lines = std::vector<std::string>;

class scroll_area_window_test : public fakes::scroll_window_fixture {
protected:
    static constexpr int left = 0, top = 1, right = 2, bottom = 3;
    static constexpr POINT middle{100, 90};

    void TearDown() override {
        area.reset();
        scroll_window_fixture::TearDown();
    }

    /// A view of 200 by 180 with both bars on content of 600 by 720, which has a red mark at (300, 360).
    void make() {
        area = ui::create_scroll_area({0, 0, 212, 192}, nullptr);
        area->set_content_bounds({0, 0, 600, 720});
        area->add_content(square({300, 360, 310, 370}, red));
        area->set_view_changed_handler([this](D2D_RECT_F shown) { views.push_back(call_text(shown)); });
        show(area->get_node());
    }
    /// The area at (100, 100), with the mouse over it.
    void make_at_100() {
        make();
        area->set_scroll_position(100, 100);
        test_support::move_mouse(handle(), middle);
        static_cast<void>(take_views());
    }
    [[nodiscard]] lines take_views() { return std::exchange(views, {}); }
    [[nodiscard]] std::string position() const {
        const D2D_POINT_2F at = area->get_scroll_position();
        return call_text(at.x, at.y);
    }

    com::ptr<ui::IScrollArea> area;
    lines views;
};

TEST_F(scroll_area_window_test, wheel_does_what_its_mode_says_with_and_without_shift) {
    make_at_100();
    const struct {
        int mode;
        bool shift;
        int notches;
        const char* expected;
    } cases[] = {
        {0, false, -1, "100 118"}, {0, false, 1, "100 82"},   {0, true, -1, "120 100"},
        {0, true, 1, "80 100"},    {1, false, -1, "120 100"}, {1, false, 1, "80 100"},
        {1, true, -1, "100 118"},  {1, true, 1, "100 82"},    {3, false, -1, "100 100"},
        {-1, true, 1, "100 100"},  {0, false, -3, "100 118"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(call_text(each.mode, each.shift, each.notches));
        area->set_wheel_mode(each.mode);
        area->set_scroll_position(100, 100);
        if (each.shift) test_support::press_key(VK_SHIFT);
        test_support::turn_wheel(each.notches);
        if (each.shift) test_support::release_key(VK_SHIFT);
        test_support::pump_until_idle();
        EXPECT_EQ(each.expected, position());
    }
}

TEST_F(scroll_area_window_test, diagonal_wheel_goes_to_the_corners_whatever_shift_says) {
    make_at_100();
    area->set_wheel_mode(2);
    const float step = std::hypot(200.0f, 180.0f) / 7;
    for (const bool shift : {false, true}) {
        area->set_scroll_position(100, 100);
        if (shift) test_support::press_key(VK_SHIFT);
        test_support::turn_wheel(1);  // 100 and 100 to go
        test_support::pump_until_idle();
        D2D_POINT_2F at = area->get_scroll_position();
        EXPECT_NEAR(100 - step / std::sqrt(2.0f), at.x, 1e-3);
        EXPECT_NEAR(100 - step / std::sqrt(2.0f), at.y, 1e-3);
        area->set_scroll_position(100, 100);
        test_support::turn_wheel(-1);  // 300 and 440 to go
        if (shift) test_support::release_key(VK_SHIFT);
        test_support::pump_until_idle();
        at = area->get_scroll_position();
        EXPECT_NEAR(100 + 300 * step / std::hypot(300.0f, 440.0f), at.x, 1e-3);
        EXPECT_NEAR(100 + 440 * step / std::hypot(300.0f, 440.0f), at.y, 1e-3);
    }
}

TEST_F(scroll_area_window_test, horizontal_wheel_goes_across_in_every_mode) {
    make_at_100();
    for (const int mode : {0, 1, 2, 9}) {
        SCOPED_TRACE(mode);
        area->set_wheel_mode(mode);
        area->set_scroll_position(100, 100);
        test_support::turn_horizontal_wheel(-1);
        test_support::pump_until_idle();
        EXPECT_EQ("120 100", position());
        test_support::turn_horizontal_wheel(2);
        test_support::pump_until_idle();
        EXPECT_EQ("100 100", position());
    }
}

TEST_F(scroll_area_window_test, wheel_beside_the_view_scrolls_nothing) {
    make_at_100();
    area->set_margin_fixed_size(top, 20);
    area->add_margin_fixed_node(top, square({0, 0, 600, 20}, blue));
    for (const POINT point :
         {POINT{206, 60}, POINT{60, 186}, POINT{206, 186}, POINT{60, 10}, POINT{250, 60}}) {
        test_support::move_mouse(handle(), point);
        test_support::turn_wheel(-1);
        test_support::pump_until_idle();
        EXPECT_EQ("100 100", position()) << point.x << ", " << point.y;
    }
    EXPECT_EQ((lines{"100 100 300 259"}), take_views()) << "of the margin alone";
}

TEST_F(scroll_area_window_test, handler_hears_of_each_turn_and_of_none_at_the_end) {
    make();
    test_support::move_mouse(handle(), middle);
    test_support::turn_wheel(1);
    test_support::turn_wheel(-1);
    test_support::turn_wheel(-1);
    test_support::pump_until_idle();
    EXPECT_EQ((lines{"0 18 200 198", "0 36 200 216"}), take_views());
    area->set_scroll_position(0, 539);
    test_support::turn_wheel(-1);
    test_support::turn_wheel(-1);
    test_support::pump_until_idle();
    EXPECT_EQ((lines{"0 539 200 719", "0 540 200 720"}), take_views());
}

TEST_F(scroll_area_window_test, content_shows_where_it_was_scrolled_to) {
    make_at_100();
    area->set_scroll_position(250, 300);
    auto seen = picture_with(red_pixel, 50, 60);
    EXPECT_EQ(red_pixel, seen.at(50, 60));
    EXPECT_EQ(red_pixel, seen.at(59, 69));
    EXPECT_EQ(white_pixel, seen.at(49, 60));
    EXPECT_EQ(white_pixel, seen.at(60, 69));
    test_support::turn_wheel(-1);
    seen = picture_with(red_pixel, 50, 42);
    EXPECT_EQ(red_pixel, seen.at(50, 42));
    EXPECT_EQ(white_pixel, seen.at(50, 52));
    area->set_scroll_position(305, 300.5f);  // cut by the view's edge, and by whole pixels
    seen = picture_with(red_pixel, 0, 59);
    EXPECT_EQ(red_pixel, seen.at(0, 59));
    EXPECT_EQ(red_pixel, seen.at(4, 68));
    EXPECT_EQ(white_pixel, seen.at(5, 60));
    EXPECT_EQ(white_pixel, seen.at(0, 69));
    area->set_scroll_position(105, 300);  // half behind the vertical bar
    seen = picture_with(red_pixel, 199, 60);
    EXPECT_EQ(red_pixel, seen.at(199, 60));
    EXPECT_EQ(track_pixel, seen.at(200, 60));
}

TEST_F(scroll_area_window_test, margins_move_with_the_content_along_their_own_direction_alone) {
    make();
    area->set_margin_scrolled_size(top, 20);
    area->set_margin_scrolled_size(left, 30);
    area->add_margin_scrolled_node(top, square({100, 0, 110, 20}, blue));
    area->add_margin_scrolled_node(left, square({0, 100, 30, 110}, red));
    // The view begins at (31, 21).
    auto seen = picture_with(blue_pixel, 131, 10);
    EXPECT_EQ(blue_pixel, seen.at(131, 10));
    EXPECT_EQ(red_pixel, seen.at(10, 121));
    test_support::move_mouse(handle(), middle);
    test_support::turn_wheel(-1);  // 15.9 of 159
    seen = picture_with(red_pixel, 10, 105);
    EXPECT_EQ(blue_pixel, seen.at(131, 10)) << "stays above its column";
    EXPECT_EQ(white_pixel, seen.at(10, 121));
    EXPECT_EQ(red_pixel, seen.at(10, 105));
    test_support::turn_horizontal_wheel(-1);  // 16.9 of 169
    seen = picture_with(white_pixel, 131, 10);
    EXPECT_EQ(white_pixel, seen.at(131, 10));
    EXPECT_EQ(blue_pixel, seen.at(114, 10));
    EXPECT_EQ(red_pixel, seen.at(10, 105)) << "stays beside its row";
    area->set_scroll_position(105, 0);
    seen = picture_with(blue_pixel, 31, 10);
    EXPECT_EQ(blue_pixel, seen.at(31, 10));
    EXPECT_EQ(blue_pixel, seen.at(35, 10));
    EXPECT_EQ(white_pixel, seen.at(29, 10)) << "cut where the left margin is";
}

TEST_F(scroll_area_window_test, bar_is_dragged_and_takes_the_content_along) {
    make();
    // The vertical thumb has a quarter of 178: 44.5, and three quarters for 540.
    const float scale = 133.5f / 540;
    test_support::drag(handle(), {206, 20}, {206, 70}, 5);
    const D2D_POINT_2F at = area->get_scroll_position();
    EXPECT_EQ(0, at.x);
    EXPECT_NEAR(50 / scale, at.y, 1e-2);
    ASSERT_FALSE(views.empty());
    EXPECT_EQ(call_text(area->get_view_rect()), views.back());
    test_support::drag(handle(), {20, 186}, {500, 186}, 4);
    EXPECT_EQ(400, area->get_scroll_position().x) << "as far as the content reaches";
    EXPECT_EQ(at.y, area->get_scroll_position().y);
}

TEST_F(scroll_area_window_test, click_on_a_track_is_a_page_of_the_view) {
    make();
    test_support::click(handle(), {206, 170});
    EXPECT_TRUE(test_support::pump_until([&] { return !views.empty(); }));
    EXPECT_EQ((lines{"0 180 200 360"}), take_views());
    test_support::click(handle(), {190, 186});
    EXPECT_TRUE(test_support::pump_until([&] { return !views.empty(); }));
    EXPECT_EQ((lines{"200 180 400 360"}), take_views());
}

TEST_F(scroll_area_window_test, handler_may_drop_the_area_while_a_bar_is_dragged) {
    make();
    int heard = 0;
    area->set_view_changed_handler([&](D2D_RECT_F) {
        ++heard;
        area.reset();
    });
    test_support::drag(handle(), {206, 20}, {206, 70}, 5);
    EXPECT_EQ(1, heard);
    test_support::move_mouse(handle(), middle);
    test_support::turn_wheel(-1);
    test_support::pump_until_idle();
    EXPECT_EQ(1, heard);
}

TEST_F(scroll_area_window_test, handler_may_drop_the_area_under_the_wheel) {
    make_at_100();
    int heard = 0;
    area->set_view_changed_handler([&](D2D_RECT_F) {
        ++heard;
        area.reset();
    });
    test_support::turn_wheel(-1);
    test_support::turn_wheel(-1);
    test_support::pump_until_idle();
    EXPECT_EQ(1, heard);
}

}  // namespace
}  // namespace d2d
