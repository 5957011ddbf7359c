// Where a scroll area's content goes: positions, alignment and bars.

#include "controls/testing/scroll_area_fixture.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using input::mouse::button;
using scene::fakes::call_text;

class scroll_area_scrolling_test : public fakes::scroll_area_fixture {
protected:
    static constexpr D2D_RECT_F usual{0, 0, 112, 92};  // 100 by 80 with both bars
    static constexpr D2D_RECT_F large{0, 0, 300, 400};

    [[nodiscard]] std::string thumb_place(bool vertical) const {
        return place_of(*bar(vertical).children.at(0));
    }
};

// Positions

TEST_F(scroll_area_scrolling_test, position_is_held_where_the_content_covers_the_view) {
    make(usual, {-20, 1000, 280, 1400});
    constexpr struct {
        D2D_POINT_2F wanted;
        const char* position;
        const char* content;
    } cases[] = {
        {{-20, 1000}, "-20 1000", "20 -1000"},      {{0, 1200}, "0 1200", "0 -1200"},
        {{-21, 999}, "-20 1000", "20 -1000"},       {{180, 1320}, "180 1320", "-180 -1320"},
        {{180.5f, 5000}, "180 1320", "-180 -1320"}, {{10.25f, 1010.75f}, "10.25 1010.75", "-10 -1011"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(call_text(each.wanted));
        area->set_scroll_position(each.wanted.x, each.wanted.y);
        EXPECT_EQ(each.position, position());
        EXPECT_EQ(each.content, content_place());
    }
}

TEST_F(scroll_area_scrolling_test, content_moves_by_whole_pixels_halves_away_from_zero) {
    make(usual, {-50, 0, 250, 400});
    area->set_scroll_position(0.5f, 10.5f);
    EXPECT_EQ("-1 -11", content_place());
    area->set_scroll_position(-0.5f, 10.49f);
    EXPECT_EQ("1 -10", content_place());
    area->set_scroll_position(1.49f, 11.5f);
    EXPECT_EQ("-1 -12", content_place());
    area->set_scroll_position(-1.5f, 12.5f);
    EXPECT_EQ("2 -13", content_place());
}

TEST_F(scroll_area_scrolling_test, margins_follow_along_their_own_direction) {
    make(usual, large);
    for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 9);
    area->set_scroll_position(30, 70);
    EXPECT_EQ("-30 -70", content_place());
    EXPECT_EQ("at 0 -70", place_of(scrolled_node(left)));
    EXPECT_EQ("at -30 0", place_of(scrolled_node(top)));
    EXPECT_EQ("at 0 -70", place_of(scrolled_node(right)));
    EXPECT_EQ("at -30 0", place_of(scrolled_node(bottom)));
    EXPECT_EQ("at 10 10 clip 0 0 80 60", place_of(viewport_node())) << "stays, as the margins do";
    EXPECT_EQ("at 10 0 clip 0 0 80 9", place_of(clip_node(top)));
}

TEST_F(scroll_area_scrolling_test, margin_that_comes_later_is_where_the_content_is) {
    make(usual, large);
    area->set_scroll_position(30, 70);
    area->set_margin_scrolled_size(top, 9);
    area->set_margin_scrolled_size(left, 9);
    EXPECT_EQ("at -30 0", place_of(scrolled_node(top)));
    EXPECT_EQ("at 0 -70", place_of(scrolled_node(left)));
}

TEST_F(scroll_area_scrolling_test, bars_follow_the_position) {
    make(usual, large);  // tracks of 98 and 78, thumbs of 32.67 and 15.6
    area->set_scroll_position(100, 160);
    EXPECT_EQ(call_text("at", 1 + 100 * ((98 - 98.0f * 100 / 300) / 200), 81), thumb_place(false));
    EXPECT_EQ(call_text("at", 101, 1 + 160 * ((78 - 78.0f * 80 / 400) / 320)), thumb_place(true));
}

TEST_F(scroll_area_scrolling_test, shrinking_content_takes_the_position_back) {
    make(usual, large);
    area->set_scroll_position(200, 320);
    area->set_content_bounds({0, 0, 250, 390});
    EXPECT_EQ("150 310", position());
    EXPECT_EQ("-150 -310", content_place());
    area->set_content_bounds({0, 0, 50, 40});
    EXPECT_EQ("0 0", position());
    area->set_content_bounds(large);
    EXPECT_EQ("0 0", position());
    area->set_content_bounds({20, 30, 320, 430});
    EXPECT_EQ("20 30", position()) << "into the content";
    EXPECT_EQ("-20 -30", content_place());
}

TEST_F(scroll_area_scrolling_test, content_that_is_shorter_starts_at_its_start) {
    make(usual, {40, 50, 60, 70});
    EXPECT_EQ("40 50", position());
    area->set_scroll_position(1000, -1000);
    EXPECT_EQ("40 50", position());
    EXPECT_EQ("40 50 152 142", call_text(area->get_view_rect()));
    EXPECT_EQ("-40 -50", content_place());
}

TEST_F(scroll_area_scrolling_test, step_to_the_opposite_place_is_taken) {
    // A node by itself keeps its transform when it is told to take the inverse.
    make(usual, {-50, -50, 250, 350});
    for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 9);
    area->set_scroll_position(7, 9);
    area->set_scroll_position(-7, -9);
    EXPECT_EQ("7 9", content_place());
    EXPECT_EQ("at 0 9", place_of(scrolled_node(left)));
    EXPECT_EQ("at 7 0", place_of(scrolled_node(top)));
    area->set_scroll_position(7, 9);
    EXPECT_EQ("-7 -9", content_place());
}

// Alignment

TEST_F(scroll_area_scrolling_test, short_content_sits_as_it_is_aligned) {
    constexpr struct {
        int x, y;
        D2D_SIZE_F content;
        const char* place;
    } cases[] = {
        {-1, -1, {50, 40}, "0 0"},       {0, 0, {50, 40}, "31 26"}, {1, 1, {50, 40}, "62 52"},
        {-7, 12, {50, 40}, "0 52"},      {5, 0, {50, 40}, "62 26"}, {0, 0, {11, 91}, "51 1"},
        {0, 0, {112, 92}, "0 0"},        {1, 1, {112, 92}, "0 0"},  {1, 0, {111.5f, 91.25f}, "1 0"},
        {1, 1, {111.75f, 91.5f}, "0 1"},
    };
    make(usual, {0, 0, 1, 1});
    for (const auto& each : cases) {
        SCOPED_TRACE(call_text(each.x, each.y, each.content));
        area->set_content_bounds({0, 0, 1, 1});
        area->set_alignment(each.x, each.y);
        area->set_content_bounds({0, 0, each.content.width, each.content.height});
        EXPECT_EQ(each.place, content_place());
        EXPECT_EQ("0 0", position());
    }
}

TEST_F(scroll_area_scrolling_test, half_a_pixel_of_centring_rounds_away) {
    make({0, 0, 150, 150}, {0, 0, 49, 150});
    area->set_alignment(0, 0);
    area->set_scroll_position(0, 0);
    EXPECT_EQ("51 0", content_place());
}

TEST_F(scroll_area_scrolling_test, alignment_waits_for_the_next_placement) {
    make(usual, {0, 0, 50, 40});
    area->set_alignment(1, 0);
    EXPECT_EQ("0 0", content_place());
    EXPECT_EQ((lines{}), calls());
    area->set_scroll_position(0, 0);
    EXPECT_EQ("62 26", content_place());
    area->set_alignment(0, 1);
    area->set_margin_fixed_size(left, 11);
    EXPECT_EQ("25 52", content_place());
}

TEST_F(scroll_area_scrolling_test, axis_that_scrolls_is_not_aligned) {
    make(usual, {0, 0, 50, 400});
    area->set_alignment(1, 1);
    area->set_scroll_position(0, 100);
    EXPECT_EQ("50 -100", content_place()) << "at the end of 100 beside the bar";
    area->set_scroll_position(0, 308);
    EXPECT_EQ("50 -308", content_place());
}

TEST_F(scroll_area_scrolling_test, margins_are_aligned_with_the_content) {
    make(usual, {0, 0, 50, 40});
    for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 9);
    area->set_alignment(0, 1);
    area->set_scroll_position(0, 0);
    // 92 by 72 between the margins.
    EXPECT_EQ("21 32", content_place());
    EXPECT_EQ("at 21 0", place_of(scrolled_node(top)));
    EXPECT_EQ("at 21 0", place_of(scrolled_node(bottom)));
    EXPECT_EQ("at 0 32", place_of(scrolled_node(left)));
    EXPECT_EQ("at 0 32", place_of(scrolled_node(right)));
}

// Bars under the mouse

TEST_F(scroll_area_scrolling_test, page_of_a_bar_is_a_page_of_the_view) {
    make(usual, large);
    hear_view();
    press({106, 79});  // the vertical track, at its end
    EXPECT_EQ("0 80", position());
    EXPECT_EQ("0 -80", content_place());
    press({99, 86});  // the horizontal one
    EXPECT_EQ("100 80", position());
    EXPECT_EQ("-100 -80", content_place());
    EXPECT_EQ((lines{"0 80 100 160", "100 80 200 160"}), take_views());
}

TEST_F(scroll_area_scrolling_test, dragged_thumb_takes_the_content_along) {
    make({0, 0, 112, 92}, {0, 0, 200, 160});  // half shows: thumbs of 49 and 39
    for (int side = 0; side < 4; ++side) area->add_margin_scrolled_node(side, scene::create_node());
    hear_view();
    drag_through({{106, 29.5f}, {106, 1000}});
    press({106, 10});
    EXPECT_EQ("0 80", position());
    EXPECT_EQ("0 -80", content_place());
    EXPECT_EQ((lines{"0 40 100 120", "0 80 100 160"}), take_views());
    drag_through({{20.25f, 86}});
    press({10, 86});
    const D2D_POINT_2F reached = area->get_scroll_position();
    EXPECT_FLOAT_EQ(10.25f / 0.49f, reached.x);
    EXPECT_EQ("-21 -80", content_place());
}

TEST_F(scroll_area_scrolling_test, jump_of_a_bar_takes_the_content_along) {
    make(usual, {0, 0, 200, 160});
    press({106, 39.5f}, button::right);  // half a thumb is 19.5
    const D2D_POINT_2F reached = area->get_scroll_position();
    EXPECT_EQ(0, reached.x);
    EXPECT_FLOAT_EQ(20 / 0.4875f, reached.y);
}

TEST_F(scroll_area_scrolling_test, bar_moves_its_own_axis_alone) {
    make(usual, large);
    area->set_scroll_position(33.25f, 44.75f);
    press({106, 79});
    EXPECT_EQ("33.25 124.75", position());
    press({99, 86});
    EXPECT_EQ("133.25 124.75", position());
}

TEST_F(scroll_area_scrolling_test, drag_that_changes_nothing_tells_nobody) {
    make(usual, large);
    hear_view();
    drag_through({{106, 5}, {90, 5}});
    press({106, 5});
    EXPECT_EQ((lines{}), take_views());
}

}  // namespace
}  // namespace d2d
