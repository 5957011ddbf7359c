#pragma once

#include "controls/label_table/sections.h"
#include "d2d/scene/layout/metrics.h"
#include "d2d/ui/ILabel.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include <dcommon.h>

namespace d2d::ui::label_table {

/// What a cell asks of its row or of its column, along one axis.
struct demand {
    float margin_before;
    float margin_after;
    float min_size;
    float max_size;
    float preferred_size;
};

[[nodiscard]] demand demand_across(const scene::layout::metrics& measured) noexcept;
[[nodiscard]] demand demand_down(const scene::layout::metrics& measured) noexcept;

/// A row or a column along its axis: what its cells ask for, and where it lies.
struct track {
    float start = 0;
    float end = 0;
    float margin_before = 0;
    float margin_after = 0;
    float min_size = 0;
    float max_size = 0;
    float size = 0;  // the preferred one, which it gets

    void forget_demands() noexcept;
    /// Takes in a cell. `gap` is the smallest margin.
    void take_in(const demand& cell, float gap) noexcept;

    [[nodiscard]] float outer_start() const noexcept { return start - margin_before; }
    [[nodiscard]] float outer_end() const noexcept { return end + margin_after; }
};

struct column : track {};

struct cell {
    com::ptr<ILabel> label;
    scene::layout::metrics measured{};
};

struct row : track, std::enable_shared_from_this<row> {
    std::vector<cell> cells;  // one for each column
    bool selected = false;
    bool removed = false;  // while somebody still works with it
    ILabelTable::sort_value value = 0;
    ILabelTable::row_key key = 0;
};

/// Indices from `first` up to `end`, which does not belong to it.
struct index_range {
    std::size_t first = 0;
    std::size_t end = 0;

    [[nodiscard]] bool contains(std::size_t index) const noexcept { return index >= first && index < end; }
};

/// The smallest range around both.
[[nodiscard]] index_range range_around(index_range a, index_range b) noexcept;

/// The longest ranges of rows that are all selected, inside `within`.
[[nodiscard]] std::vector<index_range> selected_runs(std::span<row* const> rows, index_range within);

/// Gives each track its place, each section from 0. Margins of neighbours collapse, across the end of a
/// section too. Returns where the body ends, with the margin behind it.
float place_tracks(sections<column>& columns) noexcept;
float place_tracks(sections<row*>& rows) noexcept;

/// The height of a section by itself, from the first margin to the last.
[[nodiscard]] float thickness_of(std::span<row* const> rows) noexcept;

/// The first row that has a point inside its margins, among rows that have been placed.
[[nodiscard]] std::optional<std::size_t> row_at(std::span<row* const> rows, float y) noexcept;

}  // namespace d2d::ui::label_table
