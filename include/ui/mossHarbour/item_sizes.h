#pragma once

#include "ui/mossHarbour/element_metrics.h"

namespace ui::mossHarbour {

/// As the size of an item: the element's preferred size on that axis.
inline constexpr int use_preferred = -1;
/// As the size of an item: what the element says for that very size.
inline constexpr int use_control_value = -2;

/// Where an item stands when it is smaller than its room.
enum class item_alignment : int { near_side = -1, centre = 0, far_side = 1 };

/// The part of an item's details that all layouts share. Sizes are `use_preferred`, `use_control_value`, or a
/// length in pixels or by `font_percent`; margins are lengths.
struct item_sizes {
    int min_width = use_control_value;
    int min_height = use_control_value;
    int max_width = use_control_value;
    int max_height = use_control_value;
    int preferred_width = use_control_value;
    int preferred_height = use_control_value;
    /// An item keeps the larger of this and of the element's own margin.
    int margin_left = 0;
    int margin_top = 0;
    int margin_right = 0;
    int margin_bottom = 0;
};

}  // namespace ui::mossHarbour
