// Where the margins of a scroll area lie, and what is laid out in them.

#include "controls/testing/scroll_area_fixture.h"
#include "scene/testing/fake_element.h"

#include <string>

#include <gtest/gtest.h>

namespace d2d {
namespace {

using scene::fakes::call_text;
using scene::fakes::fake_element;
using scene::fakes::same;

class scroll_area_margin_test : public fakes::scroll_area_fixture {
protected:
    static constexpr D2D_RECT_F usual{0, 0, 100, 80};
    static constexpr D2D_RECT_F short_content{0, 0, 50, 40};

    [[nodiscard]] std::string bars_shown() const {
        return std::string(shows(true) ? "v" : "") + (shows(false) ? "h" : "");
    }
    [[nodiscard]] std::string view_text() const { return call_text(area->get_view_rect()); }
};

TEST_F(scroll_area_margin_test, margins_lie_around_the_view_fixed_outside_scrolled_inside) {
    make({10, 20, 210, 220}, {0, 0, 1000, 1000});
    const float fixed[] = {3, 5, 7, 9};
    const float scrolled[] = {20, 22, 24, 26};
    for (int side = 0; side < 4; ++side) {
        area->set_margin_fixed_size(side, fixed[side]);
        area->set_margin_scrolled_size(side, scrolled[side]);
    }
    // Bars at 198 and 208; the view from 10 + 23 + 1 to 198 - 31 - 1, and from 20 + 27 + 1 to 208 - 35 - 1.
    EXPECT_EQ("at 34 48 clip 0 0 132 124", place_of(viewport_node()));
    EXPECT_EQ("0 0 132 124", view_text());
    EXPECT_EQ("at 13 48 clip 0 0 20 124", place_of(clip_node(left)));
    EXPECT_EQ("at 34 25 clip 0 0 132 22", place_of(clip_node(top)));
    EXPECT_EQ("at 167 48 clip 0 0 24 124", place_of(clip_node(right)));
    EXPECT_EQ("at 34 173 clip 0 0 132 26", place_of(clip_node(bottom)));
    EXPECT_EQ("at 10 48 clip 0 0 3 124", place_of(fixed_node(left)));
    EXPECT_EQ("at 34 20 clip 0 0 132 5", place_of(fixed_node(top)));
    EXPECT_EQ("at 191 48 clip 0 0 7 124", place_of(fixed_node(right)));
    EXPECT_EQ("at 34 199 clip 0 0 132 9", place_of(fixed_node(bottom)));
    for (int side = 0; side < 4; ++side) {
        EXPECT_TRUE(holds(fixed_node(side)));
        EXPECT_TRUE(holds(clip_node(side)));
        EXPECT_EQ("at 0 0", place_of(scrolled_node(side)));
    }
    EXPECT_EQ(11u, area_node().children.size());
}

TEST_F(scroll_area_margin_test, margins_reach_the_edges_where_no_bar_is) {
    make({10, 20, 210, 220}, short_content);
    for (const int side : {right, bottom}) {
        area->set_margin_fixed_size(side, 8);
        area->set_margin_scrolled_size(side, 4);
    }
    EXPECT_EQ("at 10 20 clip 0 0 187 187", place_of(viewport_node()));
    EXPECT_EQ("at 198 20 clip 0 0 4 187", place_of(clip_node(right)));
    EXPECT_EQ("at 202 20 clip 0 0 8 187", place_of(fixed_node(right)));
    EXPECT_EQ("at 10 208 clip 0 0 187 4", place_of(clip_node(bottom)));
    EXPECT_EQ("at 10 212 clip 0 0 187 8", place_of(fixed_node(bottom)));
}

TEST_F(scroll_area_margin_test, margins_take_from_the_room_that_bars_are_needed_for) {
    make(usual, {0, 0, 90, 60});
    EXPECT_EQ("", bars_shown());
    area->set_margin_fixed_size(left, 9);  // with the separator 10: what is left is just enough
    EXPECT_EQ("", bars_shown());
    area->set_margin_fixed_size(left, 9.5f);
    EXPECT_EQ("h", bars_shown());
    area->set_margin_fixed_size(left, 0);
    EXPECT_EQ("", bars_shown());
    area->set_margin_scrolled_size(bottom, 20);
    EXPECT_EQ("vh", bars_shown()) << "88 beside the vertical bar, for 90";
}

TEST_F(scroll_area_margin_test, room_inside_the_margins_is_the_styles_to_say) {
    style->gap = 3.5f;
    make(usual, {0, 0, 300, 400});
    area->set_margin_fixed_size(left, 10);
    EXPECT_EQ("at 13.5 0 clip 0 0 74.5 68", place_of(viewport_node()));
}

TEST_F(scroll_area_margin_test, separators_are_drawn_in_the_rectangle_without_the_bars) {
    make({10, 20, 110, 100}, {0, 0, 300, 400});
    area->set_margin_fixed_size(left, 3);
    EXPECT_EQ("separators 10 20 98 88 3 0 0 0", drawn().at(2));
    area->set_margin_scrolled_size(left, 2);
    EXPECT_EQ("separators 10 20 98 88 5 0 0 0", drawn().at(2));
    area->set_margin_scrolled_size(bottom, 4);
    EXPECT_EQ("separators 10 20 98 88 5 0 0 4", drawn().at(2));
    area->set_margin_fixed_size(right, 1);
    area->set_margin_fixed_size(top, 2);
    EXPECT_EQ("separators 10 20 98 88 5 2 1 4", drawn().at(7 + 2)) << "of the second of the two updates";
}

TEST_F(scroll_area_margin_test, size_that_stays_changes_nothing) {
    make(usual, short_content);
    area->set_margin_fixed_size(left, 3);
    area->set_margin_scrolled_size(top, 4);
    forget();
    area->set_margin_fixed_size(left, 3);
    area->set_margin_scrolled_size(top, 4);
    area->set_margin_fixed_size(bottom, 0);
    area->set_margin_scrolled_size(right, 0);
    EXPECT_EQ((lines{}), calls());
}

TEST_F(scroll_area_margin_test, part_is_there_while_it_has_a_size_and_keeps_what_was_added) {
    make(usual, short_content);
    for (int side = 0; side < 4; ++side) {
        SCOPED_TRACE(side);
        EXPECT_FALSE(holds(fixed_node(side)));
        EXPECT_FALSE(holds(clip_node(side)));
        area->set_margin_fixed_size(side, 3);
        EXPECT_TRUE(holds(fixed_node(side)));
        EXPECT_FALSE(holds(clip_node(side)));
        area->set_margin_fixed_size(side, 4);  // is not added again
        area->set_margin_scrolled_size(side, 5);
        EXPECT_TRUE(holds(clip_node(side)));
        area->set_margin_fixed_size(side, 0);
        EXPECT_FALSE(holds(fixed_node(side)));
        EXPECT_TRUE(holds(clip_node(side)));
        area->set_margin_scrolled_size(side, 0);
        EXPECT_FALSE(holds(clip_node(side)));
        EXPECT_EQ(&fixed_node(side), inside(in_fixed.at(static_cast<std::size_t>(side))).parent);
        area->set_margin_fixed_size(side, 3);
        EXPECT_TRUE(holds(fixed_node(side)));
        EXPECT_EQ(1u, fixed_node(side).children.size());
        area->set_margin_fixed_size(side, 0);
    }
}

TEST_F(scroll_area_margin_test, negative_sizes_are_sizes) {
    make(usual, short_content);
    area->set_margin_fixed_size(left, -5);
    EXPECT_TRUE(holds(fixed_node(left)));
    EXPECT_EQ("at 0 0 clip 0 0 100 80", place_of(viewport_node()));
    EXPECT_EQ("at 0 0 clip 0 0 -5 80", place_of(fixed_node(left)));
    area->set_margin_scrolled_size(left, 15);
    EXPECT_EQ("at 11 0 clip 0 0 89 80", place_of(viewport_node()));
    EXPECT_EQ("at -5 0 clip 0 0 15 80", place_of(clip_node(left)));
}

// Elements

TEST_F(scroll_area_margin_test, element_is_laid_out_in_its_fixed_part_less_the_inset) {
    make({10, 20, 110, 100}, {0, 0, 300, 400});
    const auto element = com::create_object<fake_element>(scene::layout::metrics{});
    area->set_margin_fixed_size(right, 30);
    area->set_margin_element(right, element, {1, 2, 4, 8});
    EXPECT_TRUE(same({1, 2, 26, 60}, element->rect)) << "in the part's own space, 30 by 68";
    EXPECT_EQ(1, element->arranges);
    EXPECT_EQ(0, element->measures);
    area->arrange({10, 20, 110, 120});
    EXPECT_TRUE(same({1, 2, 26, 80}, element->rect));
    area->arrange({11, 20, 111, 120});
    EXPECT_EQ(3, element->arranges);
    area->set_margin_fixed_size(right, 0);
    EXPECT_EQ(3, element->arranges) << "there is no part to lay it out in";
    area->set_margin_fixed_size(right, 20);
    EXPECT_TRUE(same({1, 2, 16, 80}, element->rect));
}

TEST_F(scroll_area_margin_test, elements_of_all_sides_fit_their_parts) {
    make({0, 0, 200, 200}, short_content);
    com::ptr<fake_element> elements[4];
    for (int side = 0; side < 4; ++side) {
        elements[side] = com::create_object<fake_element>(scene::layout::metrics{});
        area->set_margin_fixed_size(side, 10);
        area->set_margin_element(side, elements[side], {0, 0, 0, 0});
    }
    EXPECT_TRUE(same({0, 0, 10, 178}, elements[left]->rect));
    EXPECT_TRUE(same({0, 0, 178, 10}, elements[top]->rect));
    EXPECT_TRUE(same({0, 0, 10, 178}, elements[right]->rect));
    EXPECT_TRUE(same({0, 0, 178, 10}, elements[bottom]->rect));
}

TEST_F(scroll_area_margin_test, left_element_is_laid_out_without_a_part_too) {
    make(usual, short_content);
    for (int side = 0; side < 4; ++side) {
        SCOPED_TRACE(side);
        const auto element = com::create_object<fake_element>(scene::layout::metrics{});
        area->set_margin_element(side, element, {1, 2, 3, 4});
        EXPECT_EQ(side == left ? 1 : 0, element->arranges);
        if (side == left) {
            EXPECT_TRUE(same({1, 2, -3, 76}, element->rect));
        }
        area->set_margin_element(side, nullptr, {});
    }
}

TEST_F(scroll_area_margin_test, element_updates_the_area_when_anything_differs) {
    make(usual, short_content);
    const auto element = com::create_object<fake_element>(scene::layout::metrics{});
    area->set_margin_fixed_size(top, 10);
    forget();
    area->set_margin_element(top, element, {});
    EXPECT_EQ(7u, drawn().size()) << "ranges, separators and bars";
    area->set_margin_element(top, element, {});
    EXPECT_EQ((lines{}), calls());
    for (const D2D_RECT_F& inset :
         {D2D_RECT_F{1, 0, 0, 0}, D2D_RECT_F{1, 1, 0, 0}, D2D_RECT_F{1, 1, 1, 0}, D2D_RECT_F{1, 1, 1, 1}}) {
        area->set_margin_element(top, element, inset);
        EXPECT_EQ(7u, drawn().size());
        EXPECT_TRUE(same({inset.left, inset.top, 100 - inset.right, 10 - inset.bottom}, element->rect));
    }
    const auto other = com::create_object<fake_element>(scene::layout::metrics{});
    area->set_margin_element(top, other, {1, 1, 1, 1});
    EXPECT_EQ(1, other->arranges);
    EXPECT_EQ(5, element->arranges);
}

TEST_F(scroll_area_margin_test, null_element_is_stored_and_updates_nothing) {
    make(usual, short_content);
    const auto element = com::create_object<fake_element>(scene::layout::metrics{});
    area->set_margin_fixed_size(top, 10);
    area->set_margin_element(top, element, {});
    forget();
    area->set_margin_element(top, nullptr, {9, 9, 9, 9});
    EXPECT_EQ((lines{}), calls());
    EXPECT_EQ(1u, scene::fakes::references(element.get())) << "let go of";
    area->set_margin_fixed_size(top, 20);
    EXPECT_EQ(1, element->arranges);
}

}  // namespace
}  // namespace d2d
