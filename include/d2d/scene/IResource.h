#pragma once

#include "com/interface_traits.h"

namespace d2d::scene {

/// Something that drawing uses and that needs no render target to exist: a brush, a bitmap, an effect. Its
/// device-dependent half is made by each view that shows it, and goes with that view's render target.
struct IResource : IUnknown {};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IResource> : com::extends<> {
    static constexpr GUID id = com::guid("7B6C1D5E-0F7A-4C0E-A5BD-4C3D8E9F1A62");
};
