// A scroll area under the wheel.

#include "controls/testing/scroll_area_fixture.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using input::mouse::button;
using scene::fakes::call_text;
namespace event_type = input::mouse::event_type;

class scroll_area_wheel_test : public fakes::scroll_area_fixture {
protected:
    static constexpr D2D_RECT_F usual{0, 0, 112, 92};  // 100 by 80 with both bars
    static constexpr D2D_RECT_F large{0, 0, 300, 400};
    static constexpr D2D_POINT_2F in_view{50, 40};

    [[nodiscard]] std::string thumb_place(bool vertical) const {
        return place_of(*bar(vertical).children.at(0));
    }

    std::string heard;  // what the root was told; here, as it is told until the tree goes
};

struct wheel_case {
    const char* name;
    int mode;
    bool horizontal;
    std::uint32_t flags;
    int delta;
    const char* expected;  // from (100, 100)
};

TEST_F(scroll_area_wheel_test, wheel_does_what_its_mode_says) {
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

TEST_F(scroll_area_wheel_test, diagonal_wheel_steps_a_seventh_of_the_diagonal_towards_a_corner) {
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

TEST_F(scroll_area_wheel_test, diagonal_wheel_counts_from_the_bounds) {
    make({0, 0, 96, 75}, {-100, -200, 284, 263});
    area->set_wheel_mode(2);
    area->set_scroll_position(-70, -160);  // 30 and 40 from the upper left corner
    wheel(in_view, 120);
    const D2D_POINT_2F at = area->get_scroll_position();
    EXPECT_FLOAT_EQ(-79, at.x);
    EXPECT_FLOAT_EQ(-172, at.y);
}

TEST_F(scroll_area_wheel_test, diagonal_wheel_aims_at_where_short_content_would_end) {
    // 84 by 75 beside the vertical bar; the corner is 44 to the left, where the view never goes.
    make({0, 0, 96, 75}, {0, 0, 40, 108});
    area->set_wheel_mode(2);
    wheel(in_view, -120);
    const D2D_POINT_2F at = area->get_scroll_position();
    EXPECT_EQ(0, at.x);
    const float step = std::hypot(84.0f, 75.0f) / 7;
    EXPECT_FLOAT_EQ(33 * step / 55, at.y);  // 44, 33: a triangle of 3, 4 and 5
}

TEST_F(scroll_area_wheel_test, wheel_stops_at_the_ends) {
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

TEST_F(scroll_area_wheel_test, wheel_steps_from_fractions) {
    make(usual, large);
    area->set_scroll_position(0, 10.25f);
    wheel(in_view, -120);
    EXPECT_EQ("0 18.25", position());
    EXPECT_EQ("0 -18", content_place());
}

TEST_F(scroll_area_wheel_test, wheel_step_follows_the_view) {
    make(usual, large);
    area->set_margin_fixed_size(top, 39);  // 40 left
    wheel(in_view, -120);
    EXPECT_EQ("0 4", position());
}

TEST_F(scroll_area_wheel_test, wheel_moves_the_bars) {
    make(usual, {0, 0, 200, 160});
    wheel(in_view, -120);
    EXPECT_EQ(call_text("at", 101, 1 + 8 * 0.4875f), thumb_place(true));
    wheel(in_view, -120, MK_SHIFT);
    EXPECT_EQ(call_text("at", 1 + 10 * 0.49f, 81), thumb_place(false));
    press({106, 79});
    EXPECT_EQ("10 80", position()) << "a page from 8 is held at the end";
}

TEST_F(scroll_area_wheel_test, wheel_is_taken_all_over_the_view_and_nowhere_else) {
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

TEST_F(scroll_area_wheel_test, wheel_over_what_was_added_counts_once_on_its_way_up) {
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

TEST_F(scroll_area_wheel_test, other_events_on_the_content_pass) {
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

}  // namespace
}  // namespace d2d
