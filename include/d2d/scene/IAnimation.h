#pragma once

#include "com/interface_traits.h"

#include <d2d1.h>
#include <dcommon.h>

namespace d2d::scene {

/// A value that depends on time alone. Times are seconds of the host's clock, which began at any time: an
/// animation has no start of its own. While something in a view's tree is animated, the clock ticks 20 times
/// a second: transforms take their values then, and brushes theirs at the paint that follows. The scene reads
/// nothing of an animation but its values.
struct IAnimation : IUnknown {
    /// True: the value changes in steps. False: continuously.
    virtual bool is_stepped() = 0;
    /// Stepped: the time of the first step at or behind `time`. Continuous: the suggested interval between
    /// updates.
    virtual double next_update(double time) = 0;
};

/// An animation of values of type `T`: of colours, for `create_animation_solid_color_brush`, or of matrices,
/// for `INode::set_transform_animation`. Clients implement it:
///
///     class turning : public com::base_object<com::object_base,
///                                             d2d::scene::IValueAnimation<D2D_MATRIX_3X2_F>> {
///     public:
///         bool is_stepped() override { return false; }
///         double next_update(double) override { return 0.05; }
///         D2D_MATRIX_3X2_F get_value(double time) override {
///             const float angle = static_cast<float>(std::fmod(time, 4.0) * std::numbers::pi / 2);
///             const float sine = std::sin(angle), cosine = std::cos(angle);
///             return {cosine, sine, -sine, cosine, 0, 0};
///         }
///
///     protected:
///         ~turning() = default;
///     };
///
///     node->set_transform_animation(com::create_object<turning>().get());
template <class T>
struct IValueAnimation : IAnimation {
    /// The value at `time`.
    virtual T get_value(double time) = 0;
};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IAnimation> : com::extends<> {
    static constexpr GUID id = com::guid("5C0F0E5B-7B0D-4E64-9A53-61E1D3B3C2A4");
};

template <>
struct com::interface_traits<d2d::scene::IValueAnimation<_D3DCOLORVALUE>>
    : com::extends<d2d::scene::IAnimation> {
    static constexpr GUID id = com::guid("B4B1E1C6-2D0A-4B39-8C1F-6F2A9D7E5031");
};

template <>
struct com::interface_traits<d2d::scene::IValueAnimation<D2D_MATRIX_3X2_F>>
    : com::extends<d2d::scene::IAnimation> {
    static constexpr GUID id = com::guid("E0A86F47-93CB-4C58-B1D4-0D5B7A2C6E19");
};
