#pragma once

namespace ui::mossHarbour {

/// A size without limit.
inline constexpr int unbounded_extent = 0xffffff;

/// A length of `percent` hundredths of the toolkit font's height, for wherever a client gives a length:
/// padding, margins, sizes of items. Any value whose uppermost byte is not 0x01 is plain pixels.
[[nodiscard]] constexpr int font_percent(int percent) noexcept {
    return 0x01000000 + percent;
}

/// What a measurement results in, in pixels.
struct element_metrics {
    /// Room that the element wants around itself. Neighbours share it.
    int margin_left;
    int margin_top;
    int margin_right;
    int margin_bottom;
    int min_width;
    int min_height;
    /// `unbounded_extent` where there is no limit.
    int max_width;
    int max_height;
    int preferred_width;
    int preferred_height;
};

}  // namespace ui::mossHarbour
