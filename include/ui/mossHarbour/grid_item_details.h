#pragma once

#include "ui/mossHarbour/item_sizes.h"

namespace ui::mossHarbour {

/// How an item of a grid is placed.
struct grid_item_details : item_sizes {
    grid_item_details() = default;
    /// As the element says.
    constexpr grid_item_details(item_alignment vertical, item_alignment horizontal) noexcept
        : vertical_alignment(vertical), horizontal_alignment(horizontal) {}

    item_alignment vertical_alignment = item_alignment::near_side;
    item_alignment horizontal_alignment = item_alignment::near_side;
    int row = 0;
    /// Kept. An item with a span other than 1 counts for no row, and stands in the one cell at `row`,
    /// `column`, which another item has to make.
    int row_span = 1;
    int column = 0;
    int column_span = 1;
};

}  // namespace ui::mossHarbour
