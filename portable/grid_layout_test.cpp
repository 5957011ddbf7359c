#include "portable/testing/layout_fixture.h"
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
}

}  // namespace
