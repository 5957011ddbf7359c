#pragma once

#include "d2d/scene/IBrush.h"

namespace sketch {

// The colours of the examples, each as a brush of the scene: equal colours are one object.

struct palette {
    using brush = com::ptr<d2d::scene::IBrush>;

    brush paper = of(0xF4F1E8);
    brush card = of(0xFFFFFF);
    brush edge = of(0xD8D2C0);
    brush ink = of(0x2B3A3A);
    brush faint_ink = of(0x7A8A84);
    brush sky = of(0xBFDDE3);
    brush sun = of(0xF6C85F);
    brush far_hill = of(0x9DBF9E);
    brush near_hill = of(0x5E8C61);
    brush water = of(0x3F7C91);
    brush wave = of(0x6FA9B8);
    brush hull = of(0x8C4A32);
    brush sail = of(0xFBF7EC);
    brush accent = of(0xC8553D);
    brush ripple = of(0x6FA9B8, 0.35f);
    brush gleam = of(0xFBF7EC, 0.22f);

    /// A colour from 0xRRGGBB and an opacity.
    [[nodiscard]] static constexpr _D3DCOLORVALUE colour(unsigned rgb, float alpha = 1) noexcept {
        const auto channel = [=](unsigned shift) { return static_cast<float>(rgb >> shift & 0xFF) / 255.0f; };
        return {channel(16), channel(8), channel(0), alpha};
    }

    /// The brush of it.
    [[nodiscard]] static brush of(unsigned rgb, float alpha = 1) {
        return d2d::scene::create_solid_color_brush(colour(rgb, alpha));
    }
};

}  // namespace sketch
