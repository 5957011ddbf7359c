#pragma once

#include "com/base_object.h"
#include "d2d/scene/IEffect.h"
#include "scene/resource_impl.h"

namespace d2d::scene {

class shadow_effect_resource;
using shadow_effect_resource_impl =
    resource_impl<shadow_effect_resource, IMaterializedEffect, IMaterializedEffect>;

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::shadow_effect_resource_impl>
    : com::extends<d2d::scene::resource<d2d::scene::IMaterializedEffect>> {
    static constexpr GUID id = com::guid("84D1E6B9-7F32-4AC0-95E8-0B6C2D9A4F53");
};

namespace d2d::scene {

/// A picture with its blurred shadow beneath.
class shadow_effect_resource
    : public com::base_object<com::object_base, IEffect, shadow_effect_resource_impl> {
public:
    class materialized;

    shadow_effect_resource(const _D3DCOLORVALUE& shadow_color, float deviation) noexcept
        : color(shadow_color), blur(deviation) {}

    // For resource_impl.
    [[nodiscard]] com::ptr<IMaterializedEffect> create_device_object(ID2D1RenderTarget* target) const;

protected:
    ~shadow_effect_resource() = default;

private:
    _D3DCOLORVALUE color;
    float blur;
};

}  // namespace d2d::scene
