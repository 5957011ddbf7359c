#pragma once

#include "common/node.h"

#include <d2d1.h>

/// A chart of the sea, larger than most windows, in squares that are named like those of a chessboard.
namespace gallery::chart {

inline constexpr int columns = 16;
inline constexpr int rows = 11;
inline constexpr float square = 80;
inline constexpr D2D_SIZE_F size{columns * square, rows* square};

/// The chart from (0, 0).
[[nodiscard]] sketch::node make();
/// The letters of the columns in a line of this height.
[[nodiscard]] sketch::node make_letters(float height);
/// The numbers of the rows in a column of this width.
[[nodiscard]] sketch::node make_numbers(float width);

}  // namespace gallery::chart
