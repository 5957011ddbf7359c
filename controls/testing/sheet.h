#pragma once

#include "support/picture.h"

#include <algorithm>
#include <cstdint>

namespace d2d::fakes {

/// A picture of cells in rows and columns, for what looks different in each state.
class sheet {
public:
    static constexpr std::uint32_t paper = 0xFFF4EFE6;

    sheet(unsigned columns, unsigned rows, unsigned cell_width, unsigned cell_height)
        : width_(cell_width), height_(cell_height), image_(columns * cell_width, rows * cell_height, paper) {}

    /// Lays what a render target painted, premultiplied, over the paper of a cell.
    void put(unsigned column, unsigned row, const test_support::picture& painted) {
        for (unsigned y = 0; y < std::min(height_, painted.height); ++y) {
            for (unsigned x = 0; x < std::min(width_, painted.width); ++x) {
                auto& pixel = image_.at(column * width_ + x, row * height_ + y);
                pixel = over(painted.at(x, y), pixel);
            }
        }
    }
    [[nodiscard]] const test_support::picture& image() const noexcept { return image_; }

private:
    static std::uint32_t over(std::uint32_t front, std::uint32_t back) {
        const std::uint32_t seen_through = 255 - (front >> 24);
        std::uint32_t result = 0;
        for (int shift = 0; shift < 32; shift += 8) {
            const std::uint32_t channel =
                (front >> shift & 0xFF) + ((back >> shift & 0xFF) * seen_through + 127) / 255;
            result |= std::min<std::uint32_t>(channel, 255) << shift;
        }
        return result;
    }

    unsigned width_;
    unsigned height_;
    test_support::picture image_;
};

}  // namespace d2d::fakes
