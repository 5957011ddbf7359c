// Whom a scroll area tells of what it shows, and what a step of scrolling costs.

#include "controls/testing/scroll_area_fixture.h"
#include "scene/testing/allocation_count.h"
#include "scene/testing/fake_element.h"

#include <functional>
#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::call_text;
using scene::fakes::fake_element;
using scene::fakes::same;

class scroll_area_view_test : public fakes::scroll_area_fixture {
protected:
    static constexpr D2D_RECT_F usual{0, 0, 112, 92};  // 100 by 80 with both bars
    static constexpr D2D_RECT_F large{0, 0, 300, 400};

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
};

// The handler of the view

TEST_F(scroll_area_view_test, handler_is_told_what_shows_whenever_it_has_changed) {
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

TEST_F(scroll_area_view_test, handler_finds_everything_in_its_new_place) {
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

TEST_F(scroll_area_view_test, handler_is_replaced_and_taken_away) {
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

TEST_F(scroll_area_view_test, step_of_a_bar_moves_six_nodes_and_draws_nothing) {
    make(usual, large);
    for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 2);
    area->set_scroll_position(10, 10);
    forget();
    press({106, 70});
    EXPECT_EQ(6u, moves()) << "content, four margins, a thumb";
    press({90, 86});
    EXPECT_EQ(6u, moves());
}

TEST_F(scroll_area_view_test, step_moves_content_margins_and_thumbs_alone) {
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

TEST_F(scroll_area_view_test, step_moves_thumbs_content_and_margins_in_this_order) {
    make(usual, large);
    for (int side = 0; side < 4; ++side) area->set_margin_scrolled_size(side, 9);
    forget();
    area->set_scroll_position(1, 2);
    const lines found = calls();
    ASSERT_EQ(14u, found.size());
    EXPECT_EQ(0u, found[0].find("invalidate_rect 101 1 111 ")) << found[0];  // the vertical one
    EXPECT_EQ(0u, found[2].find("invalidate_rect 1 81 ")) << found[2];
    // Each where it was and where it is.
    const lines expected{
        "invalidate_rect 10 10 20 20", "invalidate_rect 9 8 19 18",   // content, by (1, 2)
        "invalidate_rect 10 0 13 3",   "invalidate_rect 9 0 12 3",    // top
        "invalidate_rect 10 71 13 74", "invalidate_rect 9 71 12 74",  // bottom
        "invalidate_rect 0 10 3 13",   "invalidate_rect 0 8 3 11",    // left
        "invalidate_rect 91 10 94 13", "invalidate_rect 91 8 94 11",  // right
    };
    EXPECT_EQ(expected, lines(found.begin() + 4, found.end()));
}

TEST_F(scroll_area_view_test, step_allocates_nothing) {
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
