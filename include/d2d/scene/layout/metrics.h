#pragma once

#include <limits>

#include <d2d1.h>

namespace d2d::scene::layout {

/// A size without limit. Sums with it stay without limit.
inline constexpr float unlimited = (std::numeric_limits<float>::max)();  // a macro in windows.h, too

/// The sizes that an element can take, in pixels.
struct metrics {
    /// Distances that neighbours are to keep from the element; not part of its sizes.
    D2D_RECT_F margin;
    D2D_SIZE_F min_size;
    /// `unlimited` where the element has no limit.
    D2D_SIZE_F max_size;
    D2D_SIZE_F preferred_size;
};

}  // namespace d2d::scene::layout
