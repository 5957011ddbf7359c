#pragma once

#include "com/interface_traits.h"

#include <d2d1.h>
#include <d2d1_1.h>

namespace d2d::scene {

/// The device object of an effect.
struct IMaterializedEffect : IUnknown {
    /// Sets the input and gives the output image; no reference is added to it.
    virtual ID2D1Image* apply(ID2D1Image* input) = 0;
};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IMaterializedEffect> : com::extends<> {
    static constexpr GUID id = com::guid("35E1C7A8-4B96-4D0F-A7E3-8F6B2D5C9014");
};
