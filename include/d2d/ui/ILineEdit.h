#pragma once

#include "com/api.h"
#include "d2d/scene/ITextFormat.h"
#include "d2d/ui/IControl.h"

#include <functional>
#include <string>

namespace d2d::ui {

/// One line of text for the user to edit, with a cursor and a selection, by keyboard and by clicks. It has no
/// clipboard and does not scroll: what runs past its rectangle is cut off. Tab, Enter, Escape, Up and Down
/// pass to the nodes above it. Each UTF-16 unit is edited by itself.
///
/// Operations throw `com::error` when the platform cannot lay the text out; the text is stored by then.
struct ILineEdit : IControl {
    /// Called behind each edit by the user, when the control is up to date, and even when Delete finds
    /// nothing to erase at the end of the text. May do anything to the control, release it included; what it
    /// throws passes to the source of the event. An empty one takes the present one off.
    virtual void set_on_change(std::function<void()> handler) = 0;
    /// Replaces the text; the cursor stays, or goes to the end when the text is shorter now. The selection
    /// stays as it is: a user who then edits it where no text is left causes `std::out_of_range`. Does not
    /// count as a change.
    virtual void set_text(std::wstring text) = 0;
    virtual std::wstring get_text() = 0;
};

/// An edit in `rect`, with a frame around the text if it is `framed`. `text` may be null. `format` is kept;
/// null stands for the style's. Selected text has the style's colour, other text is black.
///
///     const auto edit = d2d::ui::create_line_edit(L"Kiel", {10, 10, 210, 30}, true, nullptr, nullptr);
///     edit->set_on_change([&] { search(edit->get_text()); });
[[nodiscard]] MOSSHARBOUR_API com::ptr<ILineEdit> create_line_edit(const wchar_t* text, D2D_RECT_F rect,
                                                                   bool framed, scene::ITextFormat* format,
                                                                   IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ILineEdit> : com::extends<d2d::ui::IControl> {
    static constexpr GUID id = com::guid("431FD5DB-129D-44BF-AF08-69AF95572CF7");
};
