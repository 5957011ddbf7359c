#pragma once

namespace ui::mossHarbour {

/// The way a stack goes: down, or across from left to right.
enum class orientation : int { vertical = 0, horizontal = 1 };

}  // namespace ui::mossHarbour
