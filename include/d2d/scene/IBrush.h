#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/scene/IAnimation.h"
#include "d2d/scene/IResource.h"

namespace d2d::scene {

/// A brush of the scene: independent of any render target, shared freely between recordings and views.
struct IBrush : IResource {};

/// The brush of a colour (red, green, blue, alpha; 0 to 1). Two calls with an equal colour give the same
/// object while somebody holds it.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IBrush> create_solid_color_brush(_D3DCOLORVALUE color);

/// A new brush whose colour at each paint is the animation's value at the frame's time. Keeps the animation.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IBrush> create_animation_solid_color_brush(
    IValueAnimation<_D3DCOLORVALUE>* animation);

/// A new brush that shows `first` and `second` in turn, each for `period` seconds.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IBrush> create_blinking_solid_color_brush(_D3DCOLORVALUE first,
                                                                                 _D3DCOLORVALUE second,
                                                                                 float period);

/// A new brush that swings from `first` through `second` and back once in `period` seconds. A larger
/// `exponent` stays nearer to `first`, and flashes briefly to `second`.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IBrush> create_pulsating_solid_color_brush(_D3DCOLORVALUE first,
                                                                                  _D3DCOLORVALUE second,
                                                                                  double period,
                                                                                  double exponent);

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IBrush> : com::extends<d2d::scene::IResource> {
    static constexpr GUID id = com::guid("01470EFA-DF56-4CD5-9909-B8304C2F152C");
};
