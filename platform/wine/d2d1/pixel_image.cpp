#include "pixel_image.h"

#include "gaussian_blur.h"

#include <algorithm>
#include <cmath>

namespace completion {

namespace {

/// Widest deviation that the effect knows.
constexpr float most_deviation = 250;
constexpr std::size_t alpha = 3;

int part(int value, int of_255) noexcept {
    return (value * of_255 + 127) / 255;
}

/// What weighs the source and the destination, out of 255.
struct weights {
    int source;
    int destination;
};

weights weights_of(D2D1_COMPOSITE_MODE mode, int source_alpha, int destination_alpha) noexcept {
    switch (mode) {
        case D2D1_COMPOSITE_MODE_DESTINATION_OVER:
            return {255 - destination_alpha, 255};
        case D2D1_COMPOSITE_MODE_SOURCE_IN:
            return {destination_alpha, 0};
        case D2D1_COMPOSITE_MODE_DESTINATION_IN:
            return {0, source_alpha};
        case D2D1_COMPOSITE_MODE_SOURCE_OUT:
            return {255 - destination_alpha, 0};
        case D2D1_COMPOSITE_MODE_DESTINATION_OUT:
            return {0, 255 - source_alpha};
        case D2D1_COMPOSITE_MODE_SOURCE_ATOP:
            return {destination_alpha, 255 - source_alpha};
        case D2D1_COMPOSITE_MODE_DESTINATION_ATOP:
            return {255 - destination_alpha, source_alpha};
        case D2D1_COMPOSITE_MODE_XOR:
            return {255 - destination_alpha, 255 - source_alpha};
        case D2D1_COMPOSITE_MODE_PLUS:
            return {255, 255};
        case D2D1_COMPOSITE_MODE_SOURCE_COPY:
        case D2D1_COMPOSITE_MODE_BOUNDED_SOURCE_COPY:
            return {255, 0};
        default:
            return {255, 255 - source_alpha};
    }
}

/// Premultiplied colours turn over within the destination's own alpha.
pixel inverted_under(pixel destination, int source_alpha) noexcept {
    pixel result = destination;
    for (std::size_t i = 0; i < alpha; ++i) {
        const int opposite = destination[alpha] - std::min(destination[i], destination[alpha]);
        result[i] = static_cast<std::uint8_t>(part(opposite, source_alpha) +
                                              part(destination[i], 255 - source_alpha));
    }
    return result;
}

pixel composed(pixel destination, pixel source, D2D1_COMPOSITE_MODE mode) noexcept {
    if (mode == D2D1_COMPOSITE_MODE_MASK_INVERT) {
        return inverted_under(destination, source[alpha]);
    }
    const weights weigh = weights_of(mode, source[alpha], destination[alpha]);
    pixel result{};
    for (std::size_t i = 0; i < result.size(); ++i) {
        const int sum = part(source[i], weigh.source) + part(destination[i], weigh.destination);
        result[i] = static_cast<std::uint8_t>(std::min(sum, 255));
    }
    return result;
}

pixel_image cleared(const pixel_image& like, int left, int top, int right, int bottom) {
    pixel_image result;
    result.left = left;
    result.top = top;
    result.width = right - left;
    result.height = bottom - top;
    result.dpi_x = like.dpi_x;
    result.dpi_y = like.dpi_y;
    result.pixels.resize(static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height));
    return result;
}

std::uint8_t channel(float value) noexcept {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0f, 1.0f) * 255));
}

}  // namespace

pixel_image shadow_of(const pixel_image& image, float deviation, const D2D1_VECTOR_4F& color) {
    const double usable = std::clamp(deviation, 0.0f, most_deviation);
    const double deviation_x = usable * static_cast<double>(image.dpi_x) / 96;
    const double deviation_y = usable * static_cast<double>(image.dpi_y) / 96;
    const int reach_x = blur_reach(deviation_x);
    const int reach_y = blur_reach(deviation_y);
    pixel_image result = cleared(image, image.left - reach_x, image.top - reach_y,
                                 image.left + image.width + reach_x, image.top + image.height + reach_y);
    std::vector<float> cover(result.pixels.size());
    for (int y = image.top; y < image.top + image.height; ++y) {
        for (int x = image.left; x < image.left + image.width; ++x) {
            cover[result.index(x, y)] = static_cast<float>(image.pixels[image.index(x, y)][alpha]) / 255;
        }
    }
    gaussian_blur(cover, result.width, result.height, deviation_x, deviation_y);
    std::transform(cover.begin(), cover.end(), result.pixels.begin(), [&](float value) {
        const float a = value * color.w;
        return pixel{channel(color.z * a), channel(color.y * a), channel(color.x * a), channel(a)};
    });
    return result;
}

pixel_image composite_of(const pixel_image& destination, const pixel_image& source,
                         D2D1_COMPOSITE_MODE mode) {
    pixel_image result =
        cleared(destination, std::min(destination.left, source.left), std::min(destination.top, source.top),
                std::max(destination.left + destination.width, source.left + source.width),
                std::max(destination.top + destination.height, source.top + source.height));
    for (int y = result.top; y < result.top + result.height; ++y) {
        for (int x = result.left; x < result.left + result.width; ++x) {
            const bool untouched = mode == D2D1_COMPOSITE_MODE_BOUNDED_SOURCE_COPY && !source.has(x, y);
            const pixel below = destination.at(x, y);
            result.pixels[result.index(x, y)] = untouched ? below : composed(below, source.at(x, y), mode);
        }
    }
    return result;
}

}  // namespace completion
