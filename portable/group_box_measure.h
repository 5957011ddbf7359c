#pragma once

#include "portable/box_lengths.h"
#include "ui/mossHarbour/element_metrics.h"

#include <windows.h>

namespace ui::mossHarbour {

/// The distances between a group box's frame and its content: padding as the client gave it, or the content's
/// own margins where they are larger.
[[nodiscard]] box_lengths group_box_insets(const box_lengths& padding,
                                           const element_metrics& content) noexcept;

/// What a group box wants around its content, with a caption of this size.
[[nodiscard]] element_metrics measure_group_box(const element_metrics& content, SIZE caption,
                                                const box_lengths& insets) noexcept;

}  // namespace ui::mossHarbour
