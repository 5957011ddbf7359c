#pragma once

#include "com/api.h"
#include "d2d/scene/ITextFormat.h"
#include "d2d/ui/ILabel.h"

#include <string_view>

namespace d2d::ui {

/// A label of text.
struct ITextLabel : ILabel {
    /// UTF-8; malformed text throws `com::error`. Centres the rectangle on the origin again.
    virtual void set_text(std::string_view text) = 0;
    virtual void set_text(std::wstring_view text) = 0;
};

/// A label of UTF-8 text; malformed text throws `com::error`. `format` is kept; null stands for the style's.
/// The text is in one line unless it has breaks of its own.
[[nodiscard]] MOSSHARBOUR_API com::ptr<ITextLabel> create_text_label(std::string_view text,
                                                                     scene::ITextFormat* format,
                                                                     IUnknown* style);
/// The same of UTF-16 text.
[[nodiscard]] MOSSHARBOUR_API com::ptr<ITextLabel> create_text_label(std::wstring_view text,
                                                                     scene::ITextFormat* format,
                                                                     IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ITextLabel> : com::extends<d2d::ui::ILabel> {
    static constexpr GUID id = com::guid("5176D965-3F85-4602-BA40-4C38FF9F6148");
};
