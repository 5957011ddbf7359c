#pragma once

#include "com/ptr.h"
#include "controls/settings_lookup.h"
#include "d2d/scene/ITextFormat.h"

#include <optional>

#include <d2d1.h>

namespace d2d {

/// The values behind a style, by name. The four tables are name spaces of their own.
class settings {
public:
    /// Fills the tables with the values of the default style, in no order.
    void load_defaults();
    /// Brings the tables into the order of lookups. `floats` is searched as it stands: it has one entry.
    void sort();

    [[nodiscard]] std::optional<bool> find_bool(std::string_view key) const noexcept;
    [[nodiscard]] std::optional<_D3DCOLORVALUE> find_color(std::string_view key) const noexcept;
    /// Null when there is none.
    [[nodiscard]] com::ptr<scene::ITextFormat> find_text_format(std::string_view key) const noexcept;
    [[nodiscard]] std::optional<float> find_float(std::string_view key) const noexcept;

    settings_table<bool> bools;
    settings_table<_D3DCOLORVALUE> colors;
    settings_table<com::ptr<scene::ITextFormat>> text_formats;
    settings_table<float> floats;
};

}  // namespace d2d
