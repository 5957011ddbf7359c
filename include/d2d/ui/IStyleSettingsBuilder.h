#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/ui/IStyleSettings.h"

namespace d2d::ui {

/// The place where settings of a client's own are going to be put together. For now nothing can be set, and
/// what is built is empty.
struct IStyleSettingsBuilder : IUnknown {
    /// The setters throw `std::logic_error` "not implemented".
    virtual void set_color(std::string_view key, _D3DCOLORVALUE value) = 0;
    virtual void set_bool(std::string_view key, bool value) = 0;
    virtual void set_text_format(std::string_view key, com::ptr<scene::ITextFormat> value) = 0;
    virtual void set_float(std::string_view key, float value) = 0;
    virtual void set_size(std::string_view key, D2D_SIZE_F value) = 0;
    /// New settings of what has been set so far, and starts afresh.
    virtual com::ptr<IStyleSettings> build() = 0;
};

/// A new builder. `with_defaults` starts from the default style's values; they are not handed over by `build`
/// yet.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IStyleSettingsBuilder> create_style_settings_builder(
    bool with_defaults);

}  // namespace d2d::ui

// Answers to IStyleSettings too, though it is none. Kept: clients rely on the answer. Call nothing through
// it.
template <>
struct com::interface_traits<d2d::ui::IStyleSettingsBuilder> : com::extends<d2d::ui::IStyleSettings> {
    static constexpr GUID id = com::guid("0B9CE123-DCBD-4D9D-99A3-FB9CE69FFA50");
};
