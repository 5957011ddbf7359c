#pragma once

#include <d2d1_1.h>

namespace completion {

/// Sees to it that the contexts of the factory's devices and render targets know the shadow and the composite
/// effect: the first one made by whatever way has its class's table completed. Only the first call works.
void complete_effects(ID2D1Factory* factory);

/// Completes the class of a context; does nothing for null.
void complete_context(ID2D1DeviceContext* context);

/// Completes the class of a device's contexts.
void complete_context_of(ID2D1Device* device);

}  // namespace completion
