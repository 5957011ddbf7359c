#include "portable/scene_metrics.h"

#include <cmath>

namespace ui::mossHarbour {

int pixels_for(float size) noexcept {
    if (size >= static_cast<float>(unbounded_extent)) return unbounded_extent;
    if (!(size > -static_cast<float>(unbounded_extent))) return 0;  // no size at all
    return static_cast<int>(std::ceil(size));
}

element_metrics pixel_metrics(const d2d::scene::layout::metrics& measured) noexcept {
    const auto& [margin, min, max, preferred] = measured;
    return {0,
            0,
            0,
            0,
            pixels_for(min.width),
            pixels_for(min.height),
            pixels_for(max.width),
            pixels_for(max.height),
            pixels_for(preferred.width),
            pixels_for(preferred.height)};
}

}  // namespace ui::mossHarbour
