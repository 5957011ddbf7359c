#pragma once

#include "com/base_object.h"

#include <d2d1.h>

namespace d2d::line_edit {

/// Marks drawing effects of a text that are `colored_text_effect`s.
struct IColoredTextEffect : IUnknown {};

}  // namespace d2d::line_edit

template <>
struct com::interface_traits<d2d::line_edit::IColoredTextEffect> : com::extends<> {
    static constexpr GUID id = com::guid("81FF3EBB-BFA1-44A6-AD96-1474B07B60D3");
};

namespace d2d::line_edit {

/// Gives a range of a text layout a colour, when a `text_renderer` draws it.
class colored_text_effect : public com::base_object<com::object_base, IColoredTextEffect> {
public:
    explicit colored_text_effect(const _D3DCOLORVALUE& text_color) noexcept : color(text_color) {}

    const _D3DCOLORVALUE color;

protected:
    ~colored_text_effect() = default;
};

}  // namespace d2d::line_edit
