#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/IWidget.h"

#include <functional>

namespace ui::mossHarbour {

/// A choice of one among several. It has no form on the scene.
struct IOptionControl : IWidget {
    /// Appends a choice.
    virtual void add_option(const wchar_t* text) = 0;
    /// By number, from 0; -1 for none. Does not call the handler.
    virtual void select_option(int index) = 0;
    /// The number of what is chosen, -1 for none.
    virtual int get_selection() = 0;
    /// Called when the user has chosen.
    virtual void set_on_selection_changed(std::function<void(IPanel*)> handler) = 0;
};

/// A choice that is not shown yet.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IOptionControl> create_option_control();

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IOptionControl> : com::extends<ui::mossHarbour::IWidget> {
    static constexpr GUID id = com::guid("70D2E580-3DCF-4A6F-9B9F-99CA5665A7A5");
};
