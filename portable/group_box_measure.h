#pragma once

#include "portable/box_lengths.h"
#include "ui/mossHarbour/element_metrics.h"

#include <windows.h>

namespace ui::mossHarbour {

/// What a group box wants around its content, with a caption of this size and these distances between frame
/// and content.
[[nodiscard]] element_metrics measure_group_box(const element_metrics& content, SIZE caption,
                                                const box_lengths& insets) noexcept;

}  // namespace ui::mossHarbour
