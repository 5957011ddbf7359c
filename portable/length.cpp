#include "portable/length.h"

namespace ui::mossHarbour {

int font_length(int percent) noexcept {
    return static_cast<int>(static_cast<float>(percent) * static_cast<float>(font_height) / 100.0f);
}

}  // namespace ui::mossHarbour
