#pragma once

#include "d2d/scene/layout/metrics.h"

#include <algorithm>
#include <span>

namespace d2d::scene::layout {

[[nodiscard]] constexpr bool is_unlimited(float size) noexcept {
    return size >= unlimited;
}

/// The sum of two sizes, which has no limit when either has none.
[[nodiscard]] constexpr float saturating_sum(float a, float b) noexcept {
    return is_unlimited(a) || is_unlimited(b) ? unlimited : std::min(a + b, unlimited);
}

/// What an item can take along the axis on which items share room, and what it has.
struct length_share {
    float maximum;
    float preferred;
    float length;  // at first: its minimum
};

/// Lets the items grow into `free`, which may be negative: first by their preferred lengths, then by their
/// maximal ones, in whole pixels, and last those without a limit by what is left or lacking. What nobody may
/// take stays unused.
void distribute(float free, std::span<length_share> items) noexcept;

}  // namespace d2d::scene::layout
