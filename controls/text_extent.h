#pragma once

#include "com/check.h"

#include <cmath>

#include <d2d1.h>
#include <dwrite.h>

namespace d2d {

/// The size of a layout's text, in pixels. Throws `com::error`.
[[nodiscard]] inline D2D_SIZE_F text_extent(IDWriteTextLayout& layout) {
    DWRITE_TEXT_METRICS metrics{};
    com::check(layout.GetMetrics(&metrics));
    return {metrics.width, metrics.height};
}

/// The same in whole pixels.
[[nodiscard]] inline D2D_SIZE_F pixel_extent(IDWriteTextLayout& layout) {
    const D2D_SIZE_F exact = text_extent(layout);
    return {std::ceil(exact.width), std::ceil(exact.height)};
}

}  // namespace d2d
