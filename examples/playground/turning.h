#pragma once

#include "com/ptr.h"
#include "d2d/scene/IAnimation.h"

namespace playground {

/// A transform that turns about (0, 0), once in `period` seconds.
[[nodiscard]] com::ptr<d2d::scene::IValueAnimation<D2D_MATRIX_3X2_F>> make_turning(double period);

}  // namespace playground
