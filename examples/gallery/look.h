#pragma once

#include "common/palette.h"
#include "d2d/factory.h"
#include "d2d/scene/ITextFormat.h"

namespace gallery {

/// Distances, in pixels.
namespace space {
inline constexpr float small = 8;   ///< between things that belong together
inline constexpr float usual = 16;  ///< between cards, and around what is in one
inline constexpr float large = 24;  ///< around a page
inline constexpr float line = 32;   ///< the height of a push button
}  // namespace space

/// The colours and fonts of the gallery. The colours go with those of the default style, the dark one is
/// its own.
struct look {
    using brush = sketch::palette::brush;
    using format = com::ptr<d2d::scene::ITextFormat>;

    d2d::factory graphics;  // the formats need it

    brush paper = sketch::palette::of(0xF1F2F8);
    brush card = sketch::palette::of(0xFFFFFF);
    brush edge = sketch::palette::of(0xDCDEEA);
    brush ink = sketch::palette::of(0x23263F);
    brush faint_ink = sketch::palette::of(0x666B85);
    brush accent = sketch::palette::of(0x4D4DB3);
    brush tint = sketch::palette::of(0xE6E6FF);
    brush dark = sketch::palette::of(0x2A2A63);
    brush foam = sketch::palette::of(0x8C8CE6, 0.18f);
    brush faint_foam = sketch::palette::of(0xFFFFFF, 0.72f);

    format body = font(13);
    format strong = font(13, DWRITE_FONT_WEIGHT_SEMI_BOLD);
    format heading = font(16, DWRITE_FONT_WEIGHT_SEMI_BOLD);
    format title = font(24, DWRITE_FONT_WEIGHT_SEMI_BOLD);

    [[nodiscard]] static format font(float size, DWRITE_FONT_WEIGHT weight = DWRITE_FONT_WEIGHT_NORMAL,
                                     DWRITE_FONT_STYLE style = DWRITE_FONT_STYLE_NORMAL) {
        return d2d::scene::ITextFormat::get(L"Segoe UI", weight, style, size);
    }
};

}  // namespace gallery
