#pragma once

#include "com/api.h"
#include "com/ptr.h"

#include <string_view>

#include <dwrite.h>
#include <windows.h>

namespace d2d::scene {

/// A shared text format: family, weight, style and size. Needs no render target.
struct ITextFormat : IUnknown {
    /// The platform's format.
    virtual com::ptr<IDWriteTextFormat> get_format() = 0;
    /// A layout of UTF-8 text; a dimension of 0 means as much room as the text needs. In pixels. Malformed
    /// UTF-8 throws `com::error`.
    virtual com::ptr<IDWriteTextLayout> create_layout(std::string_view text, float width, float height) = 0;
    /// The same of UTF-16 text.
    virtual com::ptr<IDWriteTextLayout> create_layout(std::wstring_view text, float width, float height) = 0;

    /// The format with these properties; equal ones give the same object while somebody holds it. `size` is
    /// in pixels. `family` has to end at a null character: throws `std::logic_error` when it doesn't, unless
    /// the format is there already. A `d2d::factory` has to be alive.
    [[nodiscard]] MOSSHARBOUR_API static com::ptr<ITextFormat> get(std::wstring_view family,
                                                                   DWRITE_FONT_WEIGHT weight,
                                                                   DWRITE_FONT_STYLE style, float size);
    /// The format of a GDI font: face name, weight, italic, and the absolute height as size.
    [[nodiscard]] MOSSHARBOUR_API static com::ptr<ITextFormat> get(const LOGFONTW& font);
};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::ITextFormat> : com::extends<> {
    static constexpr GUID id = com::guid("0F4A70D1-239D-48E2-AF5A-BC160E034091");
};
