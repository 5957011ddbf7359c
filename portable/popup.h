#pragma once

#include "ui/mossHarbour/IModalService.h"

namespace ui::mossHarbour {

/// The upper left corner of a popup of a size.
[[nodiscard]] POINT popup_position(const RECT& anchor, SIZE size, popup_side side,
                                   popup_alignment align) noexcept;

}  // namespace ui::mossHarbour
