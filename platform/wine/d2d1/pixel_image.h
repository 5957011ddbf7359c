#pragma once

#include <d2d1_1.h>

#include <array>
#include <cstdint>
#include <vector>

namespace completion {

/// Premultiplied blue, green, red and alpha.
using pixel = std::array<std::uint8_t, 4>;

/// A picture somewhere in the plane of whole pixels; all beyond it is transparent.
struct pixel_image {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    float dpi_x = 96;
    float dpi_y = 96;
    std::vector<pixel> pixels;

    [[nodiscard]] std::size_t index(int x, int y) const noexcept {
        return static_cast<std::size_t>(y - top) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(x - left);
    }
    [[nodiscard]] bool has(int x, int y) const noexcept {
        return x >= left && y >= top && x - left < width && y - top < height;
    }
    [[nodiscard]] pixel at(int x, int y) const noexcept { return has(x, y) ? pixels[index(x, y)] : pixel{}; }
};

/// The image's alpha, blurred, in one colour (red, green, blue, straight alpha). The deviation counts units
/// of 1/96 inch; the picture grows by three of them on each side.
[[nodiscard]] pixel_image shadow_of(const pixel_image& image, float deviation, const D2D1_VECTOR_4F& color);

/// The source upon the destination, as large as both.
[[nodiscard]] pixel_image composite_of(const pixel_image& destination, const pixel_image& source,
                                       D2D1_COMPOSITE_MODE mode);

}  // namespace completion
