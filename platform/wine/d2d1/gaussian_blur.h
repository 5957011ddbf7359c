#pragma once

#include <vector>

namespace completion {

/// How many pixels a blur reaches: three standard deviations.
[[nodiscard]] int blur_reach(double deviation) noexcept;

/// Blurs a plane of values (rows one after another) in place, with zero all around. Deviations count pixels.
void gaussian_blur(std::vector<float>& plane, int width, int height, double deviation_x, double deviation_y);

}  // namespace completion
