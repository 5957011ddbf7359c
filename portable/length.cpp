#include "portable/length.h"

namespace ui::mossHarbour {

int decode_length(int length) noexcept {
    constexpr int mark = 0x01;  // in the uppermost byte, of `font_percent`
    if (length >> 24 != mark) return length;
    const auto percent = static_cast<float>(length & 0xffffff);
    return static_cast<int>(percent * static_cast<float>(font_height) / 100.0f);
}

}  // namespace ui::mossHarbour
