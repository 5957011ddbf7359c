#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/IWidget.h"

#include <functional>

namespace ui::mossHarbour {

/// A field for one line of text.
struct IEditControl : IWidget {
    /// Does not call the handler.
    virtual void set_text(const wchar_t* text) = 0;
    /// Copies the text to `buffer`, which has room for `capacity` units; text that is too long is cut. Ends
    /// with a zero.
    virtual void get_text(wchar_t* buffer, int capacity) = 0;
    /// Called when the user has changed the text. On the scene it is never called.
    virtual void set_on_changed(std::function<void(IPanel*)> handler) = 0;
};

/// A field that is not shown yet.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IEditControl> create_edit_control();

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IEditControl> : com::extends<ui::mossHarbour::IWidget> {
    static constexpr GUID id = com::guid("8D4F0B7E-52A6-4C19-9E3D-7B60F1A2C845");
};
