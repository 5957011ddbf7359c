#include "scene/layout_stack_metrics.h"

#include "scene/layout_distribution.h"

#include <algorithm>

namespace d2d::scene::layout {
namespace {

D2D_SIZE_F sum(D2D_SIZE_F a, D2D_SIZE_F b) noexcept {
    return {saturating_sum(a.width, b.width), saturating_sum(a.height, b.height)};
}

bool same_size(D2D_SIZE_F a, D2D_SIZE_F b) noexcept {
    return a.width == b.width && a.height == b.height;
}

/// Along the axis sizes add up; across, the largest counts.
D2D_SIZE_F stacked(D2D_SIZE_F all, D2D_SIZE_F one) noexcept {
    return {std::max(all.width, one.width), saturating_sum(all.height, one.height)};
}

}  // namespace

metrics flipped(const metrics& m) noexcept {
    return {scene::flipped(m.margin), scene::flipped(m.min_size), scene::flipped(m.max_size),
            scene::flipped(m.preferred_size)};
}

bool same_metrics(const metrics& a, const metrics& b) noexcept {
    return same_edges(a.margin, b.margin) && same_size(a.min_size, b.min_size) &&
           same_size(a.max_size, b.max_size) && same_size(a.preferred_size, b.preferred_size);
}

metrics with_margins_inside(const metrics& m) noexcept {
    const D2D_SIZE_F added{m.margin.left + m.margin.right, m.margin.top + m.margin.bottom};
    return {{}, sum(m.min_size, added), sum(m.max_size, added), sum(m.preferred_size, added)};
}

D2D_RECT_F without_margins(const D2D_RECT_F& rect, const D2D_RECT_F& margin) noexcept {
    return {rect.left + margin.left, rect.top + margin.top, rect.right - margin.right,
            rect.bottom - margin.bottom};
}

float gap_between(const metrics& above, const metrics& below) noexcept {
    return std::max(above.margin.bottom, below.margin.top);
}

float placed_gap_between(const metrics& above, const metrics& below) noexcept {
    return std::max(gap_between(above, below), 0.0f);
}

bool is_rigid(const metrics& m) noexcept {
    return !(m.min_size.height < m.max_size.height) && !is_unlimited(m.max_size.height);
}

void stack_sum::add(const metrics* above, const metrics& m) noexcept {
    if (!above) {
        total_ = m;
        return;
    }
    gaps_ += gap_between(*above, m);
    total_.min_size = stacked(total_.min_size, m.min_size);
    total_.max_size = stacked(total_.max_size, m.max_size);
    total_.preferred_size = stacked(total_.preferred_size, m.preferred_size);
    total_.margin = {std::max(total_.margin.left, m.margin.left), total_.margin.top,
                     std::max(total_.margin.right, m.margin.right), m.margin.bottom};
}

metrics stack_sum::result() const noexcept {
    metrics all = total_;
    all.max_size.width = std::max(all.max_size.width, all.preferred_size.width);
    all.max_size.height = std::max(all.max_size.height, all.preferred_size.height);
    for (D2D_SIZE_F* const size : {&all.min_size, &all.max_size, &all.preferred_size}) {
        size->height = saturating_sum(size->height, gaps_);
    }
    return all;
}

}  // namespace d2d::scene::layout
