#pragma once

#include "ui/mossHarbour/element_metrics.h"

namespace ui::mossHarbour {

/// A length for each side, as a client gave it or in pixels.
struct box_lengths {
    int left;
    int top;
    int right;
    int bottom;
};

/// The distances that a content keeps from what is around it, in pixels: padding as the client gave it, or
/// the content's own margins where they are larger.
[[nodiscard]] box_lengths distances_around(const element_metrics& content,
                                           const box_lengths& padding) noexcept;

}  // namespace ui::mossHarbour
