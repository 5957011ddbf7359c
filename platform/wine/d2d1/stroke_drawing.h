#pragma once

#include <d2d1_1.h>

namespace completion {

/// Completes the drawing operations of a context's class with stroke styles, unless the class draws dashes
/// itself: a stroke with a style is filled as what it widens to. Only the first call works.
void complete_stroke_drawing(ID2D1DeviceContext* context);

}  // namespace completion
