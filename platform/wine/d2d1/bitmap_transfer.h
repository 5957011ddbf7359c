#pragma once

#include "owned.h"
#include "pixel_image.h"

#include <optional>

namespace completion {

/// The pixels of a bitmap of the context's device; nothing when they can't be had.
[[nodiscard]] std::optional<pixel_image> read_bitmap(ID2D1DeviceContext* context, ID2D1Bitmap* bitmap);

/// A bitmap of the context's device with the picture's pixels; empty on failure.
[[nodiscard]] owned<ID2D1Bitmap> make_bitmap(ID2D1DeviceContext* context, const pixel_image& image);

}  // namespace completion
