#pragma once

#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IModalService.h"

namespace ui::mossHarbour {

/// Shows a popup in `panel`, a new one, in a message loop of its own. See `IModalService::showPopup`.
bool run_popup(com::ptr<IHwndPanel> panel, HWND owner, const IModalService::popup_details& details);

/// The upper left corner of a popup of a size.
[[nodiscard]] POINT popup_position(const RECT& anchor, SIZE size, popup_side side,
                                   popup_alignment align) noexcept;

}  // namespace ui::mossHarbour
