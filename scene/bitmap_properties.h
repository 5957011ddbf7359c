#pragma once

#include <d2d1.h>

namespace d2d::scene {

/// What all bitmaps of the scene are made with: premultiplied pixels, a pixel to a unit.
inline constexpr D2D1_BITMAP_PROPERTIES bitmap_properties{
    {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED}, 96.0f, 96.0f};

}  // namespace d2d::scene
