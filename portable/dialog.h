#pragma once

#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IModalService.h"

namespace ui::mossHarbour {

/// Shows a dialog in `panel`, a new one, above `owner`, in a message loop of its own. See
/// `IModalService::showDialog`.
bool run_dialog(com::ptr<IHwndPanel> panel, HWND owner, const IModalService::dialog_details& details);

/// The size that a panel prefers for its window. Throws `std::logic_error` for one that no window can have.
[[nodiscard]] SIZE preferred_window_size(IHwndPanel& panel);

}  // namespace ui::mossHarbour
