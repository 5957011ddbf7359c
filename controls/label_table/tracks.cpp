#include "controls/label_table/tracks.h"

#include <algorithm>

namespace d2d::ui::label_table {
namespace {

track& track_of(track& of) noexcept {
    return of;
}

track& track_of(row* of) noexcept {
    return *of;
}

template <class T>
float place(sections<T>& all) noexcept {
    float margin = 0;
    float body_end = 0;
    for (const int section : all_sections) {
        float position = 0;
        for (auto& item : all[section]) {
            track& placed = track_of(item);
            placed.start = position + std::max(placed.margin_before, margin);
            placed.end = position = placed.start + placed.size;
            margin = placed.margin_after;
        }
        if (section == ILabelTable::body) body_end = position + margin;
    }
    return body_end;
}

}  // namespace

demand demand_across(const scene::layout::metrics& measured) noexcept {
    return {measured.margin.left, measured.margin.right, measured.min_size.width, measured.max_size.width,
            measured.preferred_size.width};
}

demand demand_down(const scene::layout::metrics& measured) noexcept {
    return {measured.margin.top, measured.margin.bottom, measured.min_size.height, measured.max_size.height,
            measured.preferred_size.height};
}

void track::forget_demands() noexcept {
    margin_before = margin_after = min_size = max_size = size = 0;
}

void track::take_in(const demand& cell, float gap) noexcept {
    margin_before = std::max({margin_before, gap, cell.margin_before});
    margin_after = std::max({margin_after, gap, cell.margin_after});
    min_size = std::max(min_size, cell.min_size);
    max_size = std::max(max_size, cell.max_size);
    size = std::max(size, cell.preferred_size);
}

index_range range_around(index_range a, index_range b) noexcept {
    if (a.first == a.end) return b;
    if (b.first == b.end) return a;
    return {std::min(a.first, b.first), std::max(a.end, b.end)};
}

std::vector<index_range> selected_runs(std::span<row* const> rows, index_range within) {
    std::vector<index_range> runs;
    for (std::size_t i = within.first; i < within.end; ++i) {
        if (!rows[i]->selected) continue;
        if (runs.empty() || runs.back().end != i) runs.push_back({i, i});
        ++runs.back().end;
    }
    return runs;
}

float place_tracks(sections<column>& columns) noexcept {
    return place(columns);
}

float place_tracks(sections<row*>& rows) noexcept {
    return place(rows);
}

float thickness_of(std::span<row* const> rows) noexcept {
    float sum = 0;
    float margin = 0;
    for (const row* const each : rows) {
        sum += std::max(each->margin_before, margin) + each->size;
        margin = each->margin_after;
    }
    return sum + margin;
}

std::optional<std::size_t> row_at(std::span<row* const> rows, float y) noexcept {
    // Rows end one behind the other, so the first that ends below the point is the only one in question.
    const auto found = std::partition_point(rows.begin(), rows.end(),
                                            [y](const row* each) { return !(y < each->outer_end()); });
    if (found == rows.end() || !(y >= (*found)->outer_start())) return std::nullopt;
    return static_cast<std::size_t>(found - rows.begin());
}

}  // namespace d2d::ui::label_table
