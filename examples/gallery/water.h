#pragma once

#include "com/ptr.h"

#include <d2d1.h>

namespace gallery {

/// Water of at least a width, from a line of waves down to `bottom`. The first wave starts at `-shift`.
[[nodiscard]] com::ptr<ID2D1Geometry> water(float width, float surface, float bottom, float shift);

}  // namespace gallery
