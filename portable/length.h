#pragma once

namespace ui::mossHarbour {

/// The height of the toolkit font, in pixels.
extern const int font_height;

/// A length that a client gave, in pixels.
[[nodiscard]] int decode_length(int length) noexcept;

}  // namespace ui::mossHarbour
