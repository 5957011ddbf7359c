#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/IWidget.h"

#include <functional>

namespace ui::mossHarbour {

/// A mark that is set and removed.
struct ICheckBoxControl : IWidget {
    /// What stands beside the mark.
    virtual void set_text(const wchar_t* text) = 0;
    virtual bool is_checked() = 0;
    /// Does not call the handler.
    virtual void set_checked(bool checked) = 0;
    /// Called with the new state when the user has changed it.
    virtual void set_on_toggled(std::function<void(IPanel*, bool)> handler) = 0;
};

/// A check box that is not shown yet.
[[nodiscard]] MOSSHARBOUR_API com::ptr<ICheckBoxControl> create_check_box_control();

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::ICheckBoxControl> : com::extends<ui::mossHarbour::IWidget> {
    static constexpr GUID id = com::guid("033B3DDD-6055-4068-B105-E3BA0C40E517");
};
