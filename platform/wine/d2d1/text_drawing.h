#pragma once

#include <d2d1_1.h>

namespace completion {

/// Leaves out layouts that lie outside the clips of a context of the class. Only the first call works.
void complete_text_drawing(ID2D1DeviceContext* context);

}  // namespace completion
