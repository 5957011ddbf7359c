#pragma once

#include "common/node.h"
#include "common/palette.h"

namespace hello {

using sketch::node;
using sketch::palette;

/// A harbour seen through a window of 320 by 240: hills, water and a boat that rolls, clipped to the window,
/// with the window's frame in the foreground, over what is inside.
[[nodiscard]] node make_harbour(const palette& colours);

/// Two bitmaps on a card of 236 by 104: one from pixels, one from an icon of the system.
[[nodiscard]] node make_bitmaps(const palette& colours);

/// Lines of several styles on a card of 236 by 120.
[[nodiscard]] node make_strokes(const palette& colours);

/// Title and explanation, 560 wide.
[[nodiscard]] node make_title(const palette& colours);

}  // namespace hello
