#pragma once

#include "d2d/scene/layout/metrics.h"
#include "scene/rectangle.h"

namespace d2d::scene::layout {

// What stacks work out of metrics. Items run down; those of a stack across come with the axes exchanged.

using scene::flipped;
[[nodiscard]] metrics flipped(const metrics& m) noexcept;
[[nodiscard]] bool same_metrics(const metrics& a, const metrics& b) noexcept;

/// The margins as a part of the sizes.
[[nodiscard]] metrics with_margins_inside(const metrics& m) noexcept;
[[nodiscard]] D2D_RECT_F without_margins(const D2D_RECT_F& rect, const D2D_RECT_F& margin) noexcept;

/// Margins of neighbours collapse.
[[nodiscard]] float gap_between(const metrics& above, const metrics& below) noexcept;
/// The same where items are placed: they do not overlap.
[[nodiscard]] float placed_gap_between(const metrics& above, const metrics& below) noexcept;

/// Whether an item keeps its minimal length however much room there is, or too little.
[[nodiscard]] bool is_rigid(const metrics& m) noexcept;

/// The metrics of a number of items, to which one more can be added at a time.
class stack_sum {
public:
    /// `above` are the metrics of the item that was added before; null for the first one.
    void add(const metrics* above, const metrics& m) noexcept;
    [[nodiscard]] metrics result() const noexcept;

    /// Adding the same items to equal sums leaves them equal. No sum with a number that is none is equal.
    [[nodiscard]] bool operator==(const stack_sum& other) const noexcept {
        return gaps_ == other.gaps_ && same_metrics(total_, other.total_);
    }

private:
    metrics total_{};
    float gaps_ = 0;
};

}  // namespace d2d::scene::layout
