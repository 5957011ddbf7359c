#pragma once

#include "d2d/scene/layout/metrics.h"
#include "ui/mossHarbour/element_metrics.h"

namespace ui::mossHarbour {

/// A size of the scene in whole pixels, rounded up. One without limit stays without.
[[nodiscard]] int pixels_for(float size) noexcept;

/// What a control of the scene measures, without its margins.
[[nodiscard]] element_metrics pixel_metrics(const d2d::scene::layout::metrics& measured) noexcept;

}  // namespace ui::mossHarbour
