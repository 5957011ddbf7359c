#pragma once

#include <d2d1_1.h>

namespace completion {

/// Sees to it that nothing is drawn where the clips of a context's class leave nothing, unless the class does
/// so itself. Only the first call works.
void complete_clipping(ID2D1DeviceContext* context);

}  // namespace completion
