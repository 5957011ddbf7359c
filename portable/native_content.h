#pragma once

#include "ui/mossHarbour/ILayout.h"
#include "ui/mossHarbour/IMaterializedElement.h"
#include "ui/mossHarbour/IPanel.h"

#include <windows.h>

namespace ui::mossHarbour {

/// A layout that is shown in a window by native controls, for a panel or a group box.
class native_content {
public:
    /// Keeps `next`, null for nothing, and returns the former layout. Not while that is shown.
    com::ptr<ILayout> replace(com::ptr<ILayout> next) noexcept;
    /// `panel` is what handlers are called with.
    void show(HWND parent, IPanel* panel);
    void hide(HWND parent, IPanel* panel);

    /// Null while nothing is shown.
    [[nodiscard]] const com::ptr<IMaterializedElement>& live() const noexcept { return shown; }

private:
    com::ptr<ILayout> layout;
    com::ptr<IMaterializedElement> shown;
};

}  // namespace ui::mossHarbour
