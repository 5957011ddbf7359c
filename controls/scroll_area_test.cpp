// What a scroll area is made of, which bars come by need, and what is drawn anew when.

#include "com/error.h"
#include "controls/testing/answers.h"
#include "controls/testing/scroll_area_fixture.h"
#include "d2d/ui/IScrollBar.h"
#include "scene/testing/fake_element.h"
#include "scene/testing/metrics_text.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using fakes::answers;
using scene::fakes::call_text;
using scene::fakes::fake_element;
using scene::fakes::same;
using scene::fakes::text_of;
using scene::fakes::thrown_by;

class scroll_area_test : public fakes::scroll_area_fixture {
protected:
    static constexpr D2D_RECT_F usual{0, 0, 100, 80};
    static constexpr D2D_RECT_F short_content{0, 0, 50, 40};

    [[nodiscard]] std::string bars_shown() const {
        return std::string(shows(true) ? "v" : "") + (shows(false) ? "h" : "");
    }
    [[nodiscard]] std::string view_text() const { return call_text(area->get_view_rect()); }
};

// Parts

TEST_F(scroll_area_test, is_a_clipped_viewport_with_a_solid_content) {
    make({10, 20, 110, 100}, short_content);
    EXPECT_TRUE(same(scene::identity_matrix, area_node().transform));
    EXPECT_FALSE(area_node().clip_flags & node::has_clip);
    EXPECT_TRUE(same({10, 20, 110, 100}, area->get_rect()));
    EXPECT_TRUE(holds(viewport_node()));
    EXPECT_EQ("at 10 20 clip 0 0 100 80", place_of(viewport_node()));
    EXPECT_EQ(1u, viewport_node().children.size());
    EXPECT_EQ("at 0 0", place_of(content_node()));
    EXPECT_EQ(scene::INode::hit_solid, content_node().hit_mode);
    EXPECT_EQ(scene::INode::hit_by_content, viewport_node().hit_mode);
    EXPECT_EQ(scene::INode::hit_by_content, area_node().hit_mode);
    EXPECT_EQ(1u, area_node().children.size()) << "no margins, no bars";
    EXPECT_EQ("0 0 100 80", view_text());
    EXPECT_EQ("0 0", position());
}

TEST_F(scroll_area_test, creation_draws_separators_once_and_the_bars_in_their_places) {
    area = ui::create_scroll_area(usual, style->get_IUnknown());
    const lines bar{"thumb 0 0 -1 -0.5 0 0", "track 0 0 1 1 0 0", "thumb 0 0 -1 -0.5 0 0"};
    const lines lying{"thumb 0 0 -0.5 -1 0 0", "track 0 0 1 1 0 0", "thumb 0 0 -0.5 -1 0 0"};
    auto found = drawn();
    ASSERT_EQ(13u, found.size());
    // Two bars of a unit; either may be the first.
    lines first(found.begin(), found.begin() + 3);
    lines second(found.begin() + 3, found.begin() + 6);
    if (first == lying) std::swap(first, second);
    EXPECT_EQ(bar, first);
    EXPECT_EQ(lying, second);
    found.erase(found.begin(), found.begin() + 6);
    // The view is longer than the content of 1: the thumbs, which nobody sees, are longer than their tracks.
    const lines rest{"thumb 0 0 -1 -1 0 0",   "thumb 0 0 -1 -1 0 0",   "separators 0 0 100 80 0 0 0 0",
                     "thumb 0 0 9800 10 0 0", "track 0 68 100 80 0 0", "thumb 0 0 10 6240 0 0",
                     "track 88 0 100 80 0 0"};
    EXPECT_EQ(rest, found);
}

TEST_F(scroll_area_test, nodes_of_clients_come_and_go_in_their_parts) {
    make(usual, short_content);
    const auto content = scene::create_node();
    area->add_content(content);
    EXPECT_EQ(&content_node(), inside(content).parent);
    area->remove_content(content);
    EXPECT_EQ(nullptr, content->get_parent());
    area->remove_content(content);  // not there: ignored
    for (int side = 0; side < 4; ++side) {
        const auto each = scene::create_node();
        area->add_margin_scrolled_node(side, each);
        EXPECT_EQ(&scrolled_node(side), inside(each).parent);
        area->remove_margin_fixed_node(side, each);
        EXPECT_EQ(&scrolled_node(side), inside(each).parent);
        area->remove_margin_scrolled_node(side, each);
        EXPECT_EQ(nullptr, each->get_parent());
        area->add_margin_fixed_node(side, each);
        EXPECT_EQ(&fixed_node(side), inside(each).parent);
        area->remove_margin_scrolled_node(side, each);
        EXPECT_EQ(&fixed_node(side), inside(each).parent);
        area->remove_margin_fixed_node(side, each);
        EXPECT_EQ(nullptr, each->get_parent());
    }
    EXPECT_EQ((lines{}), drawn());
}

TEST_F(scroll_area_test, nodes_that_cannot_be_added_are_refused_as_by_any_node) {
    make(usual, short_content);
    EXPECT_EQ("unexpected", thrown_by([&] { area->add_content(nullptr); }));
    EXPECT_EQ("unexpected", thrown_by([&] { area->add_content(root); }));
    EXPECT_EQ("unexpected", thrown_by([&] { area->remove_content(nullptr); }));
    EXPECT_EQ("unexpected", thrown_by([&] { area->add_margin_fixed_node(1, nullptr); }));
    EXPECT_EQ("unexpected", thrown_by([&] { area->add_margin_scrolled_node(1, in_content); }));
    EXPECT_EQ("unexpected", thrown_by([&] { area->remove_margin_fixed_node(1, nullptr); }));
    EXPECT_EQ("unexpected", thrown_by([&] { area->remove_margin_scrolled_node(1, nullptr); }));
}

// Bars by need

TEST_F(scroll_area_test, bars_come_by_need_and_one_can_cause_the_other) {
    constexpr struct {
        D2D_SIZE_F content;
        const char* bars;
        const char* view;
    } cases[] = {
        {{100, 80}, "", "0 0 100 80"},      {{100.25f, 60}, "h", "0 0 100 68"},
        {{105, 67}, "h", "0 0 100 68"},     {{105, 68}, "h", "0 0 100 68"},
        {{105, 68.25f}, "vh", "0 0 88 68"}, {{105, 80}, "vh", "0 0 88 68"},
        {{60, 80.25f}, "v", "0 0 88 80"},   {{88, 85}, "v", "0 0 88 80"},
        {{88.25f, 85}, "vh", "0 0 88 68"},  {{100, 81}, "vh", "0 0 88 68"},
        {{101, 81}, "vh", "0 0 88 68"},     {{0, 0}, "", "0 0 100 80"},
        {{1000, 0}, "h", "0 0 100 68"},     {{0, 1000}, "v", "0 0 88 80"},
    };
    make(usual, short_content);
    for (const auto& each : cases) {
        SCOPED_TRACE(call_text(each.content));
        for (const D2D_POINT_2F start : {D2D_POINT_2F{0, 0}, D2D_POINT_2F{-30, 1000}}) {
            area->set_content_bounds(
                {start.x, start.y, start.x + each.content.width, start.y + each.content.height});
            EXPECT_EQ(each.bars, bars_shown());
            const D2D_RECT_F shown = area->get_view_rect();
            EXPECT_EQ(each.view,
                      call_text(D2D_RECT_F{0, 0, shown.right - shown.left, shown.bottom - shown.top}));
        }
    }
}

TEST_F(scroll_area_test, bars_lie_along_the_edges_and_leave_the_corner_to_none) {
    make({10, 20, 110, 100}, short_content);
    area->set_content_bounds({0, 0, 300, 40});
    ASSERT_EQ("h", bars_shown());
    EXPECT_EQ("at 0 0 clip 10 88 110 100", place_of(bar(false)));
    area->set_content_bounds({0, 0, 50, 400});
    ASSERT_EQ("v", bars_shown());
    EXPECT_EQ("at 0 0 clip 98 20 110 100", place_of(bar(true)));
    area->set_content_bounds({0, 0, 300, 400});
    ASSERT_EQ("vh", bars_shown());
    EXPECT_EQ("at 0 0 clip 10 88 98 100", place_of(bar(false)));
    EXPECT_EQ("at 0 0 clip 98 20 110 88", place_of(bar(true)));
    EXPECT_EQ("at 10 20 clip 0 0 88 68", place_of(viewport_node()));
}

TEST_F(scroll_area_test, bars_stand_for_the_content) {
    make(usual, {-20, 10, 332, 282});  // 352 by 272: four views of 88 by 68
    area->set_scroll_position(68, 112);
    const node& across = *bar(false).children.at(0);
    const node& down = *bar(true).children.at(0);
    // 86 of track and 66, a quarter of them thumb; a third of the way in both.
    EXPECT_TRUE(same({0, 0, 21.5f, 10}, across.content_bounds));
    EXPECT_TRUE(same({0, 0, 10, 16.5f}, down.content_bounds));
    EXPECT_EQ(call_text("at", 1 + 88 * (64.5f / 264), 69), place_of(across));
    EXPECT_EQ(call_text("at", 89, 1 + 102 * (49.5f / 204)), place_of(down));
}

TEST_F(scroll_area_test, bar_that_comes_is_in_front_and_one_that_goes_leaves) {
    make(usual, short_content);
    area->set_content_bounds({0, 0, 50, 400});
    const node* const vertical = &bar(true);
    EXPECT_EQ(vertical, area_node().children.back().get());
    area->set_content_bounds({0, 0, 300, 400});
    EXPECT_EQ(vertical, &bar(true));
    EXPECT_EQ(&bar(false), area_node().children.back().get());
    area->set_content_bounds(short_content);
    EXPECT_EQ("", bars_shown());
    EXPECT_EQ(1u, area_node().children.size());
    area->set_content_bounds({0, 0, 50, 400});
    EXPECT_EQ(vertical, &bar(true)) << "made once";
}

// What is drawn when

TEST_F(scroll_area_test, content_that_needs_no_other_bars_redraws_the_thumbs_alone) {
    make(usual, {0, 0, 300, 400});
    area->set_content_bounds({0, 0, 430, 330});
    EXPECT_EQ((lines{"thumb 0 0 17.6 10 0 0", "thumb 0 0 10 13.6 0 0"}), drawn());
    area->set_content_bounds({0, 0, 430, 330});
    EXPECT_EQ((lines{}), calls()) << "the same bounds change nothing";
}

TEST_F(scroll_area_test, bars_that_come_or_go_redraw_all) {
    make(usual, short_content);
    area->set_content_bounds({0, 0, 300, 40});
    // Ranges first, then separators and bars; the vertical one lies ready out of sight.
    EXPECT_EQ((lines{"thumb 0 0 32.666668 10 0 0", "thumb 0 0 10 132.6 0 0", "separators 0 0 100 68 0 0 0 0",
                     "thumb 0 0 32.666668 10 0 0", "track 0 68 100 80 0 0", "thumb 0 0 10 112.2 0 0",
                     "track 88 0 100 68 0 0"}),
              drawn());
    area->set_content_bounds(short_content);
    EXPECT_EQ((lines{"thumb 0 0 196 10 0 0", "thumb 0 0 10 132 0 0", "separators 0 0 100 80 0 0 0 0",
                     "thumb 0 0 196 10 0 0", "track 0 68 100 80 0 0", "thumb 0 0 10 156 0 0",
                     "track 88 0 100 80 0 0"}),
              drawn());
}

TEST_F(scroll_area_test, content_without_a_size_is_drawn_by_the_default_style) {
    for (const D2D_RECT_F& bounds : {D2D_RECT_F{0, 0, 0, 0}, D2D_RECT_F{5, 5, 5, 900},
                                     D2D_RECT_F{0, 7, 900, 7}, D2D_RECT_F{0, 0, -10, -10}}) {
        SCOPED_TRACE(call_text(bounds));
        const auto made = ui::create_scroll_area(usual, nullptr);
        EXPECT_NO_THROW(made->set_content_bounds(bounds));
        EXPECT_NO_THROW(made->arrange({0, 0, 50, 30}));
        EXPECT_NO_THROW(made->set_margin_fixed_size(1, 10));
        EXPECT_NO_THROW(made->set_content_bounds({0, 0, 200, 200}));
    }
}

TEST_F(scroll_area_test, area_of_any_size_is_drawn_by_the_default_style) {
    for (const D2D_RECT_F& rect : {D2D_RECT_F{0, 0, 0, 0}, D2D_RECT_F{5, 5, 17, 17}, D2D_RECT_F{0, 0, 3, 200},
                                   D2D_RECT_F{0, 0, 200, 1}}) {
        SCOPED_TRACE(call_text(rect));
        const auto made = ui::create_scroll_area(rect, nullptr);
        EXPECT_NO_THROW(made->set_content_bounds({0, 0, 200, 200}));
        EXPECT_NO_THROW(made->set_margin_fixed_size(0, 30));
        EXPECT_NO_THROW(made->set_margin_scrolled_size(3, 30));
        EXPECT_NO_THROW(made->set_scroll_position(10, 10));
        EXPECT_NO_THROW(made->arrange({0, 0, 200, 200}));
    }
}

// Arranging

TEST_F(scroll_area_test, arranging_to_the_same_rectangle_does_nothing) {
    make({10, 20, 110, 100}, {0, 0, 300, 400});
    area->arrange({10, 20, 110, 100});
    EXPECT_EQ((lines{}), calls());
}

TEST_F(scroll_area_test, pure_move_places_the_parts_and_leaves_ranges_and_separators) {
    make({10, 20, 110, 100}, {0, 0, 300, 400});
    area->set_margin_fixed_size(top, 5);
    forget();
    area->arrange({11, 22, 111, 102});
    EXPECT_TRUE(same({11, 22, 111, 102}, area->get_rect()));
    EXPECT_EQ("at 11 28 clip 0 0 88 62", place_of(viewport_node()));
    EXPECT_EQ("at 11 22 clip 0 0 88 5", place_of(fixed_node(top)));
    EXPECT_EQ("at 0 0 clip 11 90 99 102", place_of(bar(false)));
    EXPECT_EQ("at 0 0 clip 99 22 111 90", place_of(bar(true)));
    const auto redrawn = drawn();
    ASSERT_EQ(4u, redrawn.size()) << "each bar with its thumb, and no range of its own";
    EXPECT_EQ("track 11 90 99 102 0 0", redrawn[1]);
    EXPECT_EQ("track 99 22 111 90 0 0", redrawn[3]);
}

TEST_F(scroll_area_test, pure_move_keeps_the_bars_as_they_are) {
    make(usual, {0, 0, 300, 400});
    area->set_scroll_position(100, 200);
    area->set_alignment(1, 1);
    area->arrange({40, 40, 140, 120});
    EXPECT_EQ("vh", bars_shown());
    EXPECT_EQ("100 200", position());
    EXPECT_EQ("-100 -200", content_place());
}

TEST_F(scroll_area_test, another_size_updates_everything) {
    make(usual, {0, 0, 120, 90});
    area->set_scroll_position(1000, 1000);
    EXPECT_EQ("32 22", position());
    forget();
    area->arrange({0, 0, 110, 80});
    EXPECT_EQ("vh", bars_shown());
    EXPECT_EQ("22 22", position()) << "no farther than the content reaches";
    EXPECT_EQ("-22 -22", content_place());
    EXPECT_EQ("22 22 120 90", view_text());
    const auto redrawn = drawn();
    ASSERT_EQ(7u, redrawn.size());
    EXPECT_EQ("separators 0 0 98 68 0 0 0 0", redrawn[2]);
    area->arrange({5, 5, 125, 95});
    EXPECT_EQ("", bars_shown());
    EXPECT_EQ("0 0", position());
    area->arrange({5, 5, 125, 94});
    EXPECT_EQ("vh", bars_shown());
}

// Metrics, interfaces, failures

TEST_F(scroll_area_test, prefers_the_size_of_its_content) {
    make(usual, {10, 20, 310, 420});
    area->set_margin_fixed_size(left, 50);
    EXPECT_EQ("margin 0,0,0,0 min 12x12 max anyxany preferred 300x400", text_of(area->measure()));
    area->set_content_bounds({0, 0, 1, 2});
    EXPECT_EQ("margin 0,0,0,0 min 12x12 max anyxany preferred 1x2", text_of(area->measure()));
}

TEST_F(scroll_area_test, prefers_one_pixel_at_first) {
    area = ui::create_scroll_area(usual, style->get_IUnknown());
    EXPECT_EQ("margin 0,0,0,0 min 12x12 max anyxany preferred 1x1", text_of(area->measure()));
    EXPECT_EQ("0 0 100 80", view_text());
}

TEST_F(scroll_area_test, answers_as_area_and_element_alone) {
    make(usual, short_content);
    EXPECT_TRUE(
        com::same_guid(com::guid("B62E9D2B-DEA7-4E59-A76D-B5C5C342BCC0"), com::guid_of<ui::IScrollArea>()));
    EXPECT_TRUE(answers<ui::IScrollArea>(area));
    EXPECT_TRUE(answers<scene::layout::IElement>(area));
    EXPECT_TRUE(answers<IUnknown>(area));
    EXPECT_FALSE(answers<ui::IControl>(area));
    EXPECT_FALSE(answers<ui::IScrollBar>(area));
}

TEST_F(scroll_area_test, no_operation_takes_a_side_that_is_none) {
    make(usual, short_content);
    const auto loose = scene::create_node();
    const auto element = com::create_object<fake_element>(scene::layout::metrics{});
    for (const int side : {-1, 4, 5, 1000, -2147483647}) {
        SCOPED_TRACE(side);
        const std::string expected = "bad margin specified";
        EXPECT_EQ(expected, thrown_by([&] { area->set_margin_fixed_size(side, 9); }));
        EXPECT_EQ(expected, thrown_by([&] { area->set_margin_scrolled_size(side, 9); }));
        EXPECT_EQ(expected, thrown_by([&] { area->set_margin_element(side, element, {}); }));
        EXPECT_EQ(expected, thrown_by([&] { area->add_margin_fixed_node(side, loose); }));
        EXPECT_EQ(expected, thrown_by([&] { area->add_margin_scrolled_node(side, loose); }));
        EXPECT_EQ(expected, thrown_by([&] { area->remove_margin_fixed_node(side, loose); }));
        EXPECT_EQ(expected, thrown_by([&] { area->remove_margin_scrolled_node(side, loose); }));
        EXPECT_EQ(expected, thrown_by([&] { area->add_margin_fixed_node(side, nullptr); }));
        EXPECT_EQ(expected, thrown_by([&] { area->set_margin_fixed_size(side, 0); }));
    }
    EXPECT_EQ(nullptr, loose->get_parent());
    EXPECT_EQ(0, element->arranges);
    EXPECT_EQ((lines{}), calls());
    EXPECT_EQ("0 0 100 80", view_text());
}

TEST_F(scroll_area_test, one_operation_is_a_place_in_the_order_alone) {
    make(usual, short_content);
    EXPECT_EQ("not implemented", thrown_by([&] { area->reserved(); }));
}

TEST_F(scroll_area_test, needs_a_style_of_scroll_areas) {
    const auto no_style = com::create_object<scene::fakes::test_brush>(red);
    try {
        static_cast<void>(ui::create_scroll_area(usual, static_cast<scene::IBrush*>(no_style.get())));
        FAIL() << "was made without a style";
    } catch (const com::error& thrown) {
        EXPECT_EQ(E_NOINTERFACE, thrown.hresult);
    }
}

TEST_F(scroll_area_test, null_stands_for_the_default_style) {
    area = ui::create_scroll_area({0, 0, 60, 40}, nullptr);
    area->set_margin_fixed_size(left, 5);
    area->set_margin_fixed_size(top, 5);
    root->add_child(area->get_node());
    show();
    const auto painting = painted();
    EXPECT_EQ(1, std::count_if(painting.begin(), painting.end(), [](const std::string& line) {
                  return line.find("DrawGeometry") == 0 &&
                         line.find("brush(0.439216 0.501961 0.564706 1) 1 null") != std::string::npos;
              }));
    root->remove_child(area->get_node());
}

}  // namespace
}  // namespace d2d
