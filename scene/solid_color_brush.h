#pragma once

#include "com/base_object.h"
#include "d2d/scene/IBrush.h"
#include "scene/resource_impl.h"

#include <cstddef>

namespace d2d::scene {

class solid_color_brush;
using solid_color_brush_resource = resource_impl<solid_color_brush, ID2D1Brush, ID2D1SolidColorBrush>;

/// The hash of a colour in the table of shared brushes: 11 significant bits, any colour has one.
[[nodiscard]] std::size_t hash_of_color(const _D3DCOLORVALUE& color) noexcept;

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::solid_color_brush_resource>
    : com::extends<d2d::scene::resource<ID2D1Brush>> {
    static constexpr GUID id = com::guid("3E7B9A14-52C8-4D06-A1F3-6C0D8E5B2947");
};

namespace d2d::scene {

/// A brush of one colour. Without an animation it is shared: the process has one for each colour, in a table
/// that it leaves when its last reference goes.
class solid_color_brush : public com::base_object<com::object_base, IBrush, solid_color_brush_resource> {
public:
    /// The shared brush of a colour.
    [[nodiscard]] static com::ptr<solid_color_brush> shared(const _D3DCOLORVALUE& color);

    /// How many shared brushes are alive.
    [[nodiscard]] static std::size_t shared_count() noexcept;

    explicit solid_color_brush(const _D3DCOLORVALUE& fixed) : color(fixed) {}
    explicit solid_color_brush(IValueAnimation<_D3DCOLORVALUE>* animated)
        : color(animated->get_value(0.0)), animation(animated) {}

    void final_release();

    [[nodiscard]] IValueAnimation<_D3DCOLORVALUE>* get_animation() const noexcept { return animation.get(); }

    // For resource_impl.
    [[nodiscard]] com::ptr<ID2D1SolidColorBrush> create_device_object(ID2D1RenderTarget* target) const;
    [[nodiscard]] bool has_animation() const noexcept { return static_cast<bool>(animation); }
    void update_device_object(ID2D1SolidColorBrush* brush, double time) const;

protected:
    ~solid_color_brush() = default;

private:
    _D3DCOLORVALUE color;
    com::ptr<IValueAnimation<_D3DCOLORVALUE>> animation;
};

}  // namespace d2d::scene
