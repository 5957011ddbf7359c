#include "portable/length.h"

#include "portable/layout_arithmetic.h"

namespace ui::mossHarbour {

int font_length(int percent) noexcept {
    return whole_part(static_cast<float>(percent) * static_cast<float>(font_height) / 100.0f);
}

}  // namespace ui::mossHarbour
