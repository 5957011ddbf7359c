#include "portable/grid_layout_impl.h"

#include <algorithm>
#include <stdexcept>

namespace ui::mossHarbour {
namespace {

// Not as in a stack, where what is neither near nor centre is far: kept, forms are written for either.
placement placement_of(item_alignment alignment) noexcept {
    switch (alignment) {
        case item_alignment::centre:
            return placement::centre;
        case item_alignment::far_side:
            return placement::far_side;
        default:
            return placement::near_side;
    }
}

}  // namespace

element_metrics grid_layout_impl::measure_items() {
    rows.clear();
    columns.clear();
    bool has_spans = items.empty();
    for (const item& at : items) {
        const bool in_row = at.details.row_span == 1;
        const bool in_column = at.details.column_span == 1;
        if (in_row) rows.include(at.details.row, at.wanted.vertical);
        if (in_column) columns.include(at.details.column, at.wanted.horizontal);
        has_spans = has_spans || !in_row || !in_column;
    }
    if (has_spans) require_tracks();
    return metrics_of({columns.measure(), rows.measure()});
}

void grid_layout_impl::require_tracks() const {
    const bool all_placed = std::all_of(items.begin(), items.end(), [this](const item& at) {
        return rows.has(at.details.row) && columns.has(at.details.column);
    });
    if (items.empty() || !all_placed) {
        throw std::logic_error("each row and column of a grid needs an item that has span 1 in it");
    }
}

void grid_layout_impl::arrange_items(int left, int top, int right, int bottom) {
    auto row_places = rows.place({top, bottom});
    auto column_places = columns.place({left, right});
    for (item& at : items) {
        const auto& details = at.details;
        at.given.horizontal = place_in(column_places.of(details.column), at.wanted.horizontal.max,
                                       placement_of(details.horizontal_alignment));
        at.given.vertical = place_in(row_places.of(details.row), at.wanted.vertical.max,
                                     placement_of(details.vertical_alignment));
        at.arrange();
    }
}

}  // namespace ui::mossHarbour
