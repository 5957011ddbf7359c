#pragma once

#include "ui/mossHarbour/IHwndPanel.h"

#include <windows.h>

namespace ui::mossHarbour {

// What dialogs and popups have in common.

/// A panel for one of them: on the scene in any case, or as the user's settings choose.
[[nodiscard]] com::ptr<IHwndPanel> create_modal_panel(bool force_scene);

/// The size that a panel prefers for its window. Throws `std::logic_error` for one that no window can have.
[[nodiscard]] SIZE preferred_window_size(IHwndPanel& panel);

/// What a message loop does with each message.
void dispatch(IHwndPanel& panel, const MSG& message);

}  // namespace ui::mossHarbour
