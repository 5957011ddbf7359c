// Where a scroll area's content goes: positions, alignment, bars and wheels, and whom it tells.

#include "controls/testing/scroll_area_fixture.h"
#include "scene/testing/allocation_count.h"
#include "scene/testing/fake_element.h"

#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using input::mouse::button;
using scene::fakes::call_text;
using scene::fakes::fake_element;
using scene::fakes::same;
using scene::fakes::thrown_by;
namespace event_type = input::mouse::event_type;

class scroll_area_scrolling_test : public fakes::scroll_area_fixture {
protected:
    static constexpr D2D_RECT_F usual{0, 0, 112, 92};  // 100 by 80 with both bars
    static constexpr D2D_RECT_F large{0, 0, 300, 400};
    static constexpr D2D_POINT_2F in_view{50, 40};

    /// How many nodes were moved since the last time: the view invalidates where each was and where it is.
    [[nodiscard]] std::size_t moves() {
        const auto found = calls();
        for (const auto& line : found) EXPECT_TRUE(line.starts_with("invalidate_rect")) << line;
        EXPECT_EQ(0u, found.size() % 2);
        return found.size() / 2;
    }
    [[nodiscard]] std::string thumb_place(bool vertical) const {
        return place_of(*bar(vertical).children.at(0));
    }

    std::string heard;  // what the root was told; here, as it is told until the tree goes
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

// Wheels

struct wheel_case {
    const char* name;
    int mode;
    bool horizontal;
    std::uint32_t flags;
    int delta;
    const char* expected;  // from (100, 100)
};

TEST_F(scroll_area_scrolling_test, wheel_does_what_its_mode_says) {
    constexpr std::uint32_t shift = MK_SHIFT;
    const wheel_case cases[] = {
        {"down", 0, false, 0, -120, "100 108"},
        {"up", 0, false, 0, 120, "100 92"},
        {"size does not matter", 0, false, 0, -1, "100 108"},
        {"nor a large one", 0, false, 0, 1200, "100 92"},
        {"no turn is one up", 0, false, 0, 0, "100 92"},
        {"shift goes across", 0, false, shift, -120, "110 100"},
        {"shift goes across backwards", 0, false, shift, 120, "90 100"},
        {"other keys do not matter", 0, false, MK_CONTROL | MK_LBUTTON, -120, "100 108"},
        {"shift among others", 0, false, MK_CONTROL | shift, -120, "110 100"},
        {"across", 1, false, 0, -120, "110 100"},
        {"across backwards", 1, false, 0, 120, "90 100"},
        {"no turn across is one backwards", 1, false, 0, 0, "90 100"},
        {"shift goes down", 1, false, shift, -120, "100 108"},
        {"shift goes up", 1, false, shift, 120, "100 92"},
        {"horizontal", 0, true, 0, -120, "110 100"},
        {"horizontal backwards", 0, true, 0, 120, "90 100"},
        {"horizontal without a turn", 0, true, 0, 0, "90 100"},
        {"horizontal with shift", 0, true, shift, -120, "110 100"},
        {"horizontal in mode 1", 1, true, shift, -120, "110 100"},
        {"horizontal in mode 2", 2, true, 0, -120, "110 100"},
        {"horizontal in no mode", 77, true, 0, 120, "90 100"},
        {"no mode", 3, false, 0, -120, "100 100"},
        {"no mode below", -1, false, 0, -120, "100 100"},
        {"no mode with shift", 3, false, shift, -120, "100 100"},
    };
    make(usual, large);
    root->add_mouse_handler([&](scene::INode*, int depth, input::mouse::event) {
        heard += call_text(depth, "");
        return false;
    });
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        area->set_scroll_position(100, 100);
        area->set_wheel_mode(each.mode);
        heard.clear();
        mouse(each.horizontal ? event_type::horizontal_wheel : event_type::wheel, in_view, {}, each.flags,
              each.delta);
        EXPECT_EQ(each.expected, position());
        EXPECT_EQ("-3 ", heard) << "handled, whatever came of it";
    }
}

TEST_F(scroll_area_scrolling_test, diagonal_wheel_steps_a_seventh_of_the_diagonal_towards_a_corner) {
    make({0, 0, 96, 75}, {0, 0, 384, 463});  // 84 by 63: a diagonal of 105, steps of 15
    area->set_wheel_mode(2);
    const auto expect_position = [&](float x, float y) {
        const D2D_POINT_2F at = area->get_scroll_position();
        EXPECT_FLOAT_EQ(x, at.x);
        EXPECT_FLOAT_EQ(y, at.y);
    };
    wheel(in_view, -120);  // 300 and 400 to go
    expect_position(9, 12);
    wheel(in_view, 0);
    expect_position(18, 24);
    wheel(in_view, 120, MK_SHIFT);  // shift has no say
    expect_position(9, 12);
    area->set_scroll_position(3, 4);
    wheel(in_view, 120);
    expect_position(0, 0);
    wheel(in_view, 120);
    expect_position(0, 0);
    area->set_scroll_position(300, 0);
    wheel(in_view, -120);
    expect_position(300, 15);
    area->set_scroll_position(297, 396);
    wheel(in_view, -120);
    expect_position(300, 400);
    wheel(in_view, -120);
    expect_position(300, 400);
}

TEST_F(scroll_area_scrolling_test, diagonal_wheel_counts_from_the_bounds) {
    make({0, 0, 96, 75}, {-100, -200, 284, 263});
    area->set_wheel_mode(2);
    area->set_scroll_position(-70, -160);  // 30 and 40 from the upper left corner
    wheel(in_view, 120);
    const D2D_POINT_2F at = area->get_scroll_position();
    EXPECT_FLOAT_EQ(-79, at.x);
    EXPECT_FLOAT_EQ(-172, at.y);
}

TEST_F(scroll_area_scrolling_test, diagonal_wheel_aims_at_where_short_content_would_end) {
    // 84 by 75 beside the vertical bar; the corner is 44 to the left, where the view never goes.
    make({0, 0, 96, 75}, {0, 0, 40, 108});
    area->set_wheel_mode(2);
    wheel(in_view, -120);
    const D2D_POINT_2F at = area->get_scroll_position();
    EXPECT_EQ(0, at.x);
    const float step = std::hypot(84.0f, 75.0f) / 7;
    EXPECT_FLOAT_EQ(33 * step / 55, at.y);  // 44, 33: a triangle of 3, 4 and 5
}

TEST_F(scroll_area_scrolling_test, wheel_stops_at_the_ends) {
    make(usual, large);
    area->set_scroll_position(195, 3);
    wheel(in_view, 120);
    EXPECT_EQ("195 0", position());
    wheel(in_view, -120, MK_SHIFT);
    EXPECT_EQ("200 0", position());
    hear_view();
    wheel(in_view, -120, MK_SHIFT);
    EXPECT_EQ((lines{}), take_views());
}

TEST_F(scroll_area_scrolling_test, wheel_steps_from_fractions) {
    make(usual, large);
    area->set_scroll_position(0, 10.25f);
    wheel(in_view, -120);
    EXPECT_EQ("0 18.25", position());
    EXPECT_EQ("0 -18", content_place());
}

TEST_F(scroll_area_scrolling_test, wheel_step_follows_the_view) {
    make(usual, large);
    area->set_margin_fixed_size(top, 39);  // 40 left
    wheel(in_view, -120);
    EXPECT_EQ("0 4", position());
}

TEST_F(scroll_area_scrolling_test, wheel_moves_the_bars) {
    make(usual, {0, 0, 200, 160});
    wheel(in_view, -120);
    EXPECT_EQ(call_text("at", 101, 1 + 8 * 0.4875f), thumb_place(true));
    wheel(in_view, -120, MK_SHIFT);
    EXPECT_EQ(call_text("at", 1 + 10 * 0.49f, 81), thumb_place(false));
    press({106, 79});
    EXPECT_EQ("10 80", position()) << "a page from 8 is held at the end";
}

TEST_F(scroll_area_scrolling_test, wheel_is_taken_all_over_the_view_and_nowhere_else) {
    make(usual, large);
    area->set_margin_fixed_size(left, 9);
    area->set_margin_scrolled_size(top, 9);
    const auto cover = filled({0, 0, 100, 9});
    area->add_margin_scrolled_node(top, cover);
    for (const D2D_POINT_2F point : {D2D_POINT_2F{5, 40}, D2D_POINT_2F{40, 5}, D2D_POINT_2F{106, 40},
                                     D2D_POINT_2F{40, 86}, D2D_POINT_2F{106, 86}, D2D_POINT_2F{200, 40}}) {
        SCOPED_TRACE(call_text(point));
        wheel(point, -120);
        EXPECT_EQ("0 0", position());
    }
    int steps = 0;
    for (const D2D_POINT_2F point :
         {D2D_POINT_2F{10.5f, 10.5f}, D2D_POINT_2F{99.5f, 79.5f}, D2D_POINT_2F{50, 40}}) {
        SCOPED_TRACE(call_text(point));
        wheel(point, -120);
        EXPECT_EQ(call_text(0, 7 * ++steps), position());  // 70 of the view's height
    }
}

TEST_F(scroll_area_scrolling_test, wheel_over_what_was_added_counts_once_on_its_way_up) {
    make(usual, large);
    const auto inner = filled({0, 0, 300, 400});
    area->add_content(inner);
    wheel(in_view, -120);
    EXPECT_EQ("0 8", position());
    inner->add_mouse_handler(
        [](scene::INode*, int, input::mouse::event event) { return event.wheel_delta > 0; });
    wheel(in_view, 120);
    EXPECT_EQ("0 8", position()) << "the inner one has it";
    wheel(in_view, -120);
    EXPECT_EQ("0 16", position());
}

TEST_F(scroll_area_scrolling_test, other_events_on_the_content_pass) {
    make(usual, large);
    root->add_mouse_handler([&](scene::INode*, int depth, input::mouse::event event) {
        if (depth > 0) heard += call_text(event.type, "");
        return false;
    });
    mouse(event_type::move, in_view);
    for (const int type : {event_type::move, event_type::button_down, event_type::button_up,
                           event_type::double_click, event_type::hover}) {
        mouse(type, in_view, button::left, MK_SHIFT, -120);
    }
    EXPECT_EQ("1 3 4 5 8 ", heard);
    EXPECT_EQ("0 0", position());
}

// The handler of the view

TEST_F(scroll_area_scrolling_test, handler_is_told_what_shows_whenever_it_has_changed) {
    make(usual, large);
    hear_view();
    const struct {
        const char* name;
        std::function<void()> change;
        lines told;
    } cases[] = {
        {"position", [&] { area->set_scroll_position(10, 20); }, {"10 20 110 100"}},
        {"same position", [&] { area->set_scroll_position(10, 20); }, {}},
        {"position held", [&] { area->set_scroll_position(10, -20); }, {"10 0 110 80"}},
        {"less than a pixel", [&] { area->set_scroll_position(10.25f, 0); }, {"10.25 0 110.25 80"}},
        {"bounds that do not matter",
         [&] {
             area->set_content_bounds({0, 0, 310, 400});
         },
         {}},
        {"bounds that need no bar",
         [&] {
             area->set_content_bounds({0, 0, 100, 400});
         },
         {"0 0 100 92"}},
        {"bounds", [&] { area->set_content_bounds(large); }, {"0 0 100 80"}},
        {"fixed margin", [&] { area->set_margin_fixed_size(left, 4); }, {"0 0 95 80"}},
        {"scrolled margin", [&] { area->set_margin_scrolled_size(top, 4); }, {"0 0 95 75"}},
        {"same margin", [&] { area->set_margin_scrolled_size(top, 4); }, {}},
        {"another size",
         [&] {
             area->arrange({0, 0, 122, 92});
         },
         {"0 0 105 75"}},
        {"same rectangle",
         [&] {
             area->arrange({0, 0, 122, 92});
         },
         {}},
        {"another place",
         [&] {
             area->arrange({5, 5, 127, 97});
         },
         {}},
        {"alignment", [&] { area->set_alignment(1, 1); }, {}},
        {"wheel mode", [&] { area->set_wheel_mode(1); }, {}},
        {"element",
         [&] {
             area->set_margin_element(left, com::create_object<fake_element>(scene::layout::metrics{}), {});
         },
         {}},
        {"wheel",
         [&] {
             wheel({50, 50}, -120);
         },
         {"10.5 0 115.5 75"}},
        {"wheel that is at its end",
         [&] {
             wheel({50, 50}, 120), wheel({50, 50}, 120);
         },
         {"0 0 105 75"}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        each.change();
        EXPECT_EQ(each.told, take_views());
    }
}

TEST_F(scroll_area_scrolling_test, handler_finds_everything_in_its_new_place) {
    make(usual, large);
    area->set_margin_scrolled_size(top, 4);
    lines seen;
    area->set_view_changed_handler([&](D2D_RECT_F shown) {
        EXPECT_TRUE(same(shown, area->get_view_rect()));
        seen.push_back(call_text(position(), content_place(), place_of(scrolled_node(top)),
                                 place_of(viewport_node()), thumb_place(true)));
    });
    area->set_scroll_position(10, 20);
    seen.back().clear();
    const std::string thumb = thumb_place(true);
    wheel({50, 50}, -120);
    wheel({50, 50}, 120);
    EXPECT_EQ("10 20 -10 -20 at -10 0 at 0 5 clip 0 0 100 75 " + thumb, seen.back());
    area->arrange({0, 0, 113, 93});
    EXPECT_NE(std::string::npos, seen.back().find("at 0 5 clip 0 0 101 76")) << seen.back();
}

TEST_F(scroll_area_scrolling_test, handler_is_replaced_and_taken_away) {
    make(usual, large);
    hear_view();
    int others = 0;
    area->set_view_changed_handler([&](D2D_RECT_F) { ++others; });
    area->set_scroll_position(1, 1);
    EXPECT_EQ((lines{}), take_views());
    EXPECT_EQ(1, others);
    area->set_view_changed_handler(nullptr);
    area->set_scroll_position(2, 2);
    EXPECT_EQ(1, others);
    hear_view();
    EXPECT_EQ((lines{}), take_views()) << "not told what it could have known";
}

// What a step costs

TEST_F(scroll_area_scrolling_test, step_of_a_bar_moves_six_nodes_and_draws_nothing) {
    make(usual, large);
    for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 2);
    area->set_scroll_position(10, 10);
    forget();
    press({106, 70});
    EXPECT_EQ(6u, moves()) << "content, four margins, a thumb";
    press({90, 86});
    EXPECT_EQ(6u, moves());
}

TEST_F(scroll_area_scrolling_test, step_moves_content_margins_and_thumbs_alone) {
    make(usual, large);
    for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 2);
    area->set_scroll_position(10, 10);
    forget();
    area->set_scroll_position(11, 12);
    EXPECT_EQ(7u, moves()) << "content, four margins, both thumbs";
    wheel({50, 50}, -120);
    EXPECT_EQ(7u, moves());
    area->set_scroll_position(11.25f, area->get_scroll_position().y);
    EXPECT_EQ(2u, moves()) << "less than a pixel shows on the bars alone";
}

TEST_F(scroll_area_scrolling_test, step_allocates_nothing) {
    make(usual, large);
    for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 2);
    D2D_RECT_F last{};
    area->set_view_changed_handler([&](D2D_RECT_F shown) { last = shown; });
    edge->detach_render_target(nullptr);  // the fake host writes each area down
    area->set_scroll_position(1, 1);
    wheel({50, 50}, -120);
    const std::size_t before = scene::fakes::allocation_count();
    for (int i = 0; i < 50; ++i) area->set_scroll_position(static_cast<float>(i), static_cast<float>(2 * i));
    for (int i = 0; i < 50; ++i) wheel({50, 50}, i % 3 == 0 ? 120 : -120, i % 2 == 0 ? 0 : MK_SHIFT);
    press({106, 70});
    press({90, 86});
    EXPECT_EQ(before, scene::fakes::allocation_count());
    EXPECT_TRUE(same(area->get_view_rect(), last));
}

}  // namespace
}  // namespace d2d
