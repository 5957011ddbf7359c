#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <vector>

struct IWICBitmap;

namespace test_support {

/// Rows of pixels from the top, each 0xAARRGGBB. Colours are as in the source: premultiplied where a render
/// target with alpha painted them.
struct picture {
    unsigned width = 0;
    unsigned height = 0;
    std::vector<std::uint32_t> pixels;

    picture() = default;
    picture(unsigned picture_width, unsigned picture_height, std::uint32_t colour = 0);

    [[nodiscard]] std::uint32_t& at(unsigned x, unsigned y) { return pixels.at(std::size_t{y} * width + x); }
    [[nodiscard]] std::uint32_t at(unsigned x, unsigned y) const {
        return pixels.at(std::size_t{y} * width + x);
    }

    bool operator==(const picture&) const = default;
};

/// Copies a WIC bitmap of one of the 32-bit BGRA formats; throws `std::runtime_error` for another.
[[nodiscard]] picture picture_of(IWICBitmap* bitmap);

/// What the screen shows in the client area of `window`, made opaque. Only pixels that are on the screen
/// count: bring the window to the front ahead of it and let it paint.
[[nodiscard]] picture grab_client_area(HWND window);

/// PNG files keep the four bytes of each pixel as they are. Both throw `std::runtime_error` with the file's
/// name.
[[nodiscard]] picture load_png(const std::filesystem::path& file);
void save_png(const picture& image, const std::filesystem::path& file);

}  // namespace test_support
