#pragma once

#include "common/node.h"
#include "common/palette.h"

namespace playground {

// The pictures of the toys, each about (0, 0) and within `toy::reach`, with a word beneath. With `still` what
// would move stands still.

/// A lighthouse with a lamp that blinks.
[[nodiscard]] sketch::node make_lighthouse(const sketch::palette& colours, bool still);
/// A buoy with a light that swells and fades.
[[nodiscard]] sketch::node make_buoy(const sketch::palette& colours, bool still);
/// A ship's wheel that turns.
[[nodiscard]] sketch::node make_wheel(const sketch::palette& colours, bool still);
/// An anchor from the text of an SVG path.
[[nodiscard]] sketch::node make_anchor(const sketch::palette& colours);
/// A boat.
[[nodiscard]] sketch::node make_boat(const sketch::palette& colours);
/// A kite above and to the right of (0, 0), where its string ends.
[[nodiscard]] sketch::node make_kite(const sketch::palette& colours);
/// The name of the example, and what can be done with it.
[[nodiscard]] sketch::node make_title(const sketch::palette& colours);

}  // namespace playground
