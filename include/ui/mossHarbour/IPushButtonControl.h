#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/IWidget.h"

#include <functional>

namespace ui::mossHarbour {

/// A button that does something.
struct IPushButtonControl : IWidget {
    virtual void set_text(const wchar_t* text) = 0;
    /// A button that is not enabled does not react to the user. Each new form of it is enabled.
    virtual void set_enabled(bool enabled) = 0;
    /// Called when the user has pressed the button. May take the button away.
    virtual void set_on_click(std::function<void(IPanel*)> handler) = 0;
};

/// A button that is not shown yet.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IPushButtonControl> create_push_button_control();

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IPushButtonControl> : com::extends<ui::mossHarbour::IWidget> {
    static constexpr GUID id = com::guid("4148BCF0-0AD7-467C-8DFD-7E8291934AD8");
};
