#pragma once

namespace ui::mossHarbour {

/// The height of the toolkit font, in pixels.
extern const int font_height;

/// `percent` hundredths of the font's height, in whole pixels.
[[nodiscard]] int font_length(int percent) noexcept;

/// A length that a client gave, in pixels.
[[nodiscard]] inline int decode_length(int length) noexcept {
    constexpr int mark = 0x01;  // in the uppermost byte, of `font_percent`
    return length >> 24 == mark ? font_length(length & 0xffffff) : length;
}

}  // namespace ui::mossHarbour
