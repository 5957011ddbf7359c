#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/IWidget.h"

#include <functional>

namespace ui::mossHarbour {

/// One of several that exclude each other.
struct IRadioButtonControl : IWidget {
    /// What stands beside the mark.
    virtual void set_text(const wchar_t* text) = 0;
    /// Does not call the handler.
    virtual void set_checked(bool checked) = 0;
    virtual bool is_checked() = 0;
    /// Called when the user has chosen the button. May take it away.
    virtual void set_on_click(std::function<void(IPanel*)> handler) = 0;
};

/// A radio button that is not shown yet. `group_start` marks the first one of a group. On the scene buttons
/// do not know their group: uncheck the others in the handler.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IRadioButtonControl> create_radio_button_control(bool group_start);

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IRadioButtonControl> : com::extends<ui::mossHarbour::IWidget> {
    static constexpr GUID id = com::guid("E658FED2-380C-4308-804A-110C346ECBBD");
};
