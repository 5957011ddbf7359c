// The records that clients fill in for layouts, and that elements fill in when they are measured: programs
// have their fields compiled in.

#include "ui/mossHarbour/grid_item_details.h"
#include "ui/mossHarbour/orientation.h"
#include "ui/mossHarbour/stack_item_details.h"

#include <array>
#include <cstring>
#include <type_traits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace ui::mossHarbour;
using testing::ElementsAre;

/// The fields of a record of whole numbers, as they stand one behind the other.
template <class Record>
auto numbers_in(const Record& record) {
    static_assert(std::is_trivially_copyable_v<Record> && sizeof(Record) % sizeof(int) == 0);
    std::array<int, sizeof(Record) / sizeof(int)> numbers{};
    std::memcpy(numbers.data(), &record, sizeof record);
    return numbers;
}

void number_sizes(item_sizes& sizes) {
    sizes.min_width = 1;
    sizes.min_height = 2;
    sizes.max_width = 3;
    sizes.max_height = 4;
    sizes.preferred_width = 5;
    sizes.preferred_height = 6;
    sizes.margin_left = 7;
    sizes.margin_top = 8;
    sizes.margin_right = 9;
    sizes.margin_bottom = 10;
}

TEST(layout_records, of_measurements_have_their_fields_in_this_order) {
    element_metrics m{};
    m.margin_left = 1;
    m.margin_top = 2;
    m.margin_right = 3;
    m.margin_bottom = 4;
    m.min_width = 5;
    m.min_height = 6;
    m.max_width = 7;
    m.max_height = 8;
    m.preferred_width = 9;
    m.preferred_height = 10;
    EXPECT_THAT(numbers_in(m), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
}

TEST(layout_records, of_items_have_their_fields_in_this_order) {
    stack_item_details in_stack;
    number_sizes(in_stack);
    in_stack.alignment = static_cast<item_alignment>(11);
    EXPECT_THAT(numbers_in(in_stack), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
    grid_item_details in_grid;
    number_sizes(in_grid);
    in_grid.vertical_alignment = static_cast<item_alignment>(11);
    in_grid.horizontal_alignment = static_cast<item_alignment>(12);
    in_grid.row = 13;
    in_grid.row_span = 14;
    in_grid.column = 15;
    in_grid.column_span = 16;
    EXPECT_THAT(numbers_in(in_grid), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16));
}

TEST(layout_records, of_items_leave_all_sizes_to_the_element_unless_told_otherwise) {
    EXPECT_THAT(numbers_in(stack_item_details(item_alignment::far_side)),
                ElementsAre(-2, -2, -2, -2, -2, -2, 0, 0, 0, 0, 1));
    EXPECT_THAT(numbers_in(stack_item_details(item_alignment::near_side)),
                ElementsAre(-2, -2, -2, -2, -2, -2, 0, 0, 0, 0, -1));
    EXPECT_THAT(numbers_in(grid_item_details(item_alignment::centre, item_alignment::far_side)),
                ElementsAre(-2, -2, -2, -2, -2, -2, 0, 0, 0, 0, 0, 1, 0, 1, 0, 1));
}

TEST(layout_records, have_these_marks_for_sizes_of_their_own_kind) {
    EXPECT_EQ(unbounded_extent, 16'777'215);
    EXPECT_EQ(use_preferred, -1);
    EXPECT_EQ(use_control_value, -2);
    EXPECT_EQ(font_percent(100), 0x1000064);
    EXPECT_EQ(font_percent(50), 0x1000032);
    EXPECT_EQ(font_percent(600), 0x1000258);
    EXPECT_EQ(static_cast<int>(orientation::vertical), 0);
    EXPECT_EQ(static_cast<int>(orientation::horizontal), 1);
}

}  // namespace
