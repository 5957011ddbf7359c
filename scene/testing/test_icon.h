#pragma once

#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

#include <windows.h>

namespace d2d::scene::fakes {

struct icon_deleter {
    void operator()(HICON icon) const noexcept { DestroyIcon(icon); }
};
using owned_icon = std::unique_ptr<std::remove_pointer_t<HICON>, icon_deleter>;

/// An icon of 32-bit pixels, not premultiplied, each 0xAARRGGBB, rows from the top.
[[nodiscard]] owned_icon make_icon(int width, int height, const std::vector<std::uint32_t>& pixels);

/// An icon of black and white, which has no colour bitmap.
[[nodiscard]] owned_icon make_monochrome_icon();

}  // namespace d2d::scene::fakes
