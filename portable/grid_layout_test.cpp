#include "portable/testing/layout_fixture.h"
#include "scene/testing/allocation_count.h"
#include "ui/mossHarbour/IGridLayout.h"

namespace {

using namespace ui::mossHarbour;
using namespace ui::mossHarbour::stubs;
using testing::ElementsAre;

class grid_layout : public layout_fixture {
protected:
    void SetUp() override {
        layout_fixture::SetUp();
        grid = create_grid_layout();
        layout = com::ptr<IMaterializableElement>(grid.get());
    }
    stub_element& add(int row, int column, const element_metrics& said, grid_item_details details = {}) {
        details.row = row;
        details.column = column;
        auto& added = make_stub(said);
        grid->add_item(details, com::ptr<IElement>(static_cast<IElement*>(&added)));
        return added;
    }
    void TearDown() override {
        grid.reset();
        layout_fixture::TearDown();
    }

    com::ptr<IGridLayout> grid;
};

/// Fixed at a size, with margins above and below.
element_metrics fixed(int size, int margin_top = 0, int margin_bottom = 0) {
    return {0, margin_top, 0, margin_bottom, size, size, size, size, size, size};
}

TEST_F(grid_layout, is_as_wide_as_its_widest_items) {
    add(0, 0, fixed(10));
    add(0, 1, fixed(20));
    add(1, 0, fixed(30));
    add(1, 1, fixed(5));
    EXPECT_THAT(fields_of(measure()), ElementsAre(0, 0, 0, 0, 50, 50, 50, 50, 50, 50));
}

TEST_F(grid_layout, measures_gaps_against_the_first_row_and_arranges_them_pair_by_pair) {
    add(0, 0, fixed(10, 0, 2));
    add(1, 0, fixed(10, 1, 9));
    auto& last = add(2, 0, fixed(10, 1, 0));
    EXPECT_EQ(measure().min_height, 10 + 2 + 10 + 2 + 10);
    arrange(0, 0, 10, 34);
    EXPECT_THAT(edges_of(last.placed.back()), ElementsAre(0, 10 + 2 + 10 + 9, 10, 41));
}

TEST_F(grid_layout, reports_the_margins_of_its_outer_rows_and_columns) {
    add(3, 7, {1, 2, 3, 4, 1, 1, 1, 1, 1, 1});
    add(5, 9, {5, 6, 7, 8, 1, 1, 1, 1, 1, 1});
    const auto m = measure();
    EXPECT_THAT(fields_of(m), ElementsAre(1, 2, 7, 8, 1 + 5 + 1, 1 + 6 + 1, 7, 8, 7, 8));
}

TEST_F(grid_layout, has_its_rows_and_columns_in_the_order_of_their_numbers) {
    auto& last = add(9, 100, fixed(10));
    auto& first = add(-3, -7, fixed(20));
    auto& middle = add(0, 5, fixed(30));
    EXPECT_EQ(measure().min_width, 60);
    arrange(0, 0, 60, 60);
    EXPECT_THAT(edges_of(first.placed.back()), ElementsAre(0, 0, 20, 20));
    EXPECT_THAT(edges_of(middle.placed.back()), ElementsAre(20, 20, 50, 50));
    EXPECT_THAT(edges_of(last.placed.back()), ElementsAre(50, 50, 60, 60));
}

TEST_F(grid_layout, makes_a_track_of_the_largest_of_each_number) {
    add(0, 0, {1, 2, 3, 4, 10, 11, 50, 51, 20, 21});
    add(0, 0, {4, 1, 1, 9, 15, 5, 40, 60, 30, 10});
    EXPECT_THAT(fields_of(measure()), ElementsAre(4, 2, 3, 9, 15, 11, 50, 60, 30, 21));
}

TEST_F(grid_layout, has_no_track_smaller_than_nothing) {
    add(0, 0, {-1, -2, -3, -4, -5, -6, -1, -1, -2, -2});
    EXPECT_THAT(fields_of(measure()), testing::Each(0));
}

// Plain sums, unlike those of a stack: kept, whoever reads them takes whatever reaches the limit for it.
TEST_F(grid_layout, adds_up_rows_without_limit) {
    for (const int row : {0, 1, 2}) add(row, 0, wide(10, 10, 10));  // as high as you like
    EXPECT_EQ(measure().max_height, 3 * unbounded_extent);
}

TEST_F(grid_layout, places_its_items_nowhere_ahead_of_the_first_measure) {
    auto& item = add(0, 0, fixed(10));
    materialize();
    live->arrange(3, 4, 100, 100);
    ASSERT_EQ(item.placed.size(), 2u);
    EXPECT_THAT(edges_of(item.placed.back()), ElementsAre(3, 4, 3, 4));
}

TEST_F(grid_layout, measures_anew_what_its_elements_say) {
    auto& item = add(0, 0, fixed(10));
    add(0, 1, fixed(20));
    EXPECT_EQ(measure().min_width, 30);
    item.said = fixed(5);
    EXPECT_EQ(live->measure(context).min_width, 25);
    EXPECT_EQ(live->measure(context).min_height, 20);
}

TEST_F(grid_layout, takes_a_new_item_into_account_when_it_is_materialized_again) {
    add(0, 0, fixed(10));
    EXPECT_EQ(measure().min_width, 10);
    auto& late = add(0, 1, fixed(20));
    EXPECT_EQ(live->measure(context).min_width, 10);
    dematerialize();
    EXPECT_EQ(measure().min_width, 30);
    EXPECT_EQ(late.materialized, 1);
}

TEST_F(grid_layout, grows_nobody_where_nobody_prefers_anything) {
    auto& a = add(0, 0, wide(0, 0, unbounded_extent));
    auto& b = add(0, 1, wide(5, 0, unbounded_extent));
    b.said.preferred_width = 0;
    arrange(0, 0, 100, 10);
    EXPECT_EQ(a.placed.back().right, 0);
    EXPECT_EQ(b.placed.back().left, 0);
    EXPECT_EQ(b.placed.back().right, 100);  // its minimum is the least that it can prefer
}

TEST_F(grid_layout, overflows_its_room_with_minimums) {
    auto& a = add(0, 0, fixed(10));
    auto& b = add(0, 1, fixed(10));
    arrange(0, 0, 15, 10);
    EXPECT_EQ(a.placed.back().right, 10);
    EXPECT_EQ(b.placed.back().right, 20);
}

TEST_F(grid_layout, allocates_its_tracks_once_and_their_places_for_each_arrangement) {
    for (int row = 0; row < 5; ++row) {
        for (int column = 0; column < 6; ++column) add(row, column, fixed(10)).placed.reserve(8);
    }
    static_cast<void>(measure());
    const auto before = d2d::scene::fakes::allocation_count();
    static_cast<void>(live->measure(context));
    EXPECT_EQ(d2d::scene::fakes::allocation_count(), before);
    live->arrange(0, 0, 100, 500);
    EXPECT_EQ(d2d::scene::fakes::allocation_count(), before + 2);  // for rows and columns
}

TEST_F(grid_layout, shares_what_is_left_by_preference) {
    auto& a = add(0, 0, wide(10, 10, 20));
    auto& b = add(0, 1, wide(10, 30, unbounded_extent));
    arrange(0, 0, 100, 10);
    EXPECT_THAT(edges_of(a.placed.back()), ElementsAre(0, 0, 20, 10));
    EXPECT_EQ(b.placed.back().left, 20);
    EXPECT_EQ(b.placed.back().right, 99);  // rounds of 60, 7 and 2: the last pixel is nobody's share
}

TEST_F(grid_layout, arranges_each_element_twice) {
    auto& item = add(0, 0, fixed(10));
    arrange(0, 0, 10, 10);
    ASSERT_EQ(item.placed.size(), 2u);
    EXPECT_EQ(edges_of(item.placed[0]), edges_of(item.placed[1]));
}

struct alignment_case {
    int alignment;
    int start;
};

class grid_alignment : public grid_layout, public testing::WithParamInterface<alignment_case> {};

TEST_P(grid_alignment, places_an_item_that_is_smaller_than_its_cell) {
    const auto alignment = static_cast<item_alignment>(GetParam().alignment);
    add(0, 0, fixed(101));
    auto& item = add(0, 0, fixed(30), grid_item_details(alignment, alignment));
    arrange(0, 0, 101, 101);
    const LONG start = GetParam().start;
    EXPECT_THAT(edges_of(item.placed.back()), ElementsAre(start, start, start + 30, start + 30));
}

INSTANTIATE_TEST_SUITE_P(each, grid_alignment,
                         testing::Values(alignment_case{-1, 0}, alignment_case{0, 35}, alignment_case{1, 71},
                                         alignment_case{7, 0}, alignment_case{-2, 0}));

TEST_F(grid_layout, counts_an_item_with_a_span_for_no_track) {
    add(0, 0, fixed(10));
    grid_item_details spanning;
    spanning.row_span = spanning.column_span = 2;
    auto& item = add(0, 0, fixed(50), spanning);
    EXPECT_EQ(measure().min_width, 10);
    arrange(0, 0, 10, 10);
    EXPECT_THAT(edges_of(item.placed.back()), ElementsAre(0, 0, 10, 10));
}

TEST_F(grid_layout, refuses_to_be_measured_without_tracks_for_its_items) {
    EXPECT_THROW(static_cast<void>(measure()), std::logic_error);
    dematerialize();
    grid_item_details spanning;
    spanning.column_span = 2;
    add(0, 0, fixed(10), spanning);
    EXPECT_THROW(static_cast<void>(measure()), std::logic_error);
    dematerialize();
    add(1, 0, fixed(10));  // now there is a column 0
    EXPECT_EQ(measure().min_width, 10);
    EXPECT_EQ(measure().min_height, 20);
}

}  // namespace
