#pragma once

#include "com/ptr.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/ITextFormat.h"

#include <optional>
#include <string_view>

#include <d2d1.h>

namespace d2d::ui {

/// The named values behind a style. A key is a dotted path that is read from the right: one that is not there
/// is answered by its longest dotted tail that is, so "line-edit.idle.outline" by "idle.outline". Colours,
/// flags, text formats and numbers have name spaces of their own. A key without an answer is no error.
///
/// An implementation overrides what it has; the bodies here answer that there is nothing.
struct IStyleSettings : IUnknown {
    virtual std::optional<_D3DCOLORVALUE> get_color([[maybe_unused]] std::string_view key) { return {}; }
    virtual std::optional<bool> get_bool([[maybe_unused]] std::string_view key) { return {}; }
    /// Null when there is none.
    virtual com::ptr<scene::ITextFormat> get_text_format([[maybe_unused]] std::string_view key) { return {}; }
    /// In pixels where it is a length.
    virtual std::optional<float> get_float([[maybe_unused]] std::string_view key) { return {}; }
    /// In pixels.
    virtual std::optional<D2D_SIZE_F> get_size([[maybe_unused]] std::string_view key) { return {}; }
    /// A brush of `get_color`; null when there is no such colour.
    virtual com::ptr<scene::IBrush> get_brush(std::string_view key) {
        const auto color = get_color(key);
        return color ? scene::create_solid_color_brush(*color) : nullptr;
    }
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IStyleSettings> : com::extends<> {
    static constexpr GUID id = com::guid("AA1F87BE-1820-47A2-9D63-2421B3011107");
};
