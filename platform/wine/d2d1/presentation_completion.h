#pragma once

#include <d2d1_1.h>

namespace completion {

/// Sees to it that a swap chain of the kind "flip, sequential" keeps what was presented where the next frame
/// draws nothing, for the devices that this factory makes Direct2D devices of. Only the first call works.
void complete_presentation(ID2D1Factory* factory);

}  // namespace completion
