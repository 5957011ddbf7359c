#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/scene/IResource.h"

#include <d2d1.h>
#include <dcommon.h>

namespace d2d::scene {

/// An effect through which a node's background recording is painted; see `INode::set_effect`.
struct IEffect : IResource {};

/// A shadow of the given colour beneath what the node paints; `blur` is the standard deviation in pixels.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IEffect> create_shadow_effect(_D3DCOLORVALUE color, float blur);

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IEffect> : com::extends<d2d::scene::IResource> {
    static constexpr GUID id = com::guid("7D671EEA-4C6E-4664-836A-D323A5EEB83E");
};
