#include "gaussian_blur.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace completion {

namespace {

std::vector<float> bell(double deviation) {
    const int reach = blur_reach(deviation);
    std::vector<double> weights;
    double sum = 0;
    for (int i = -reach; i <= reach; ++i) {
        weights.push_back(std::exp(-i * i / (2 * deviation * deviation)));
        sum += weights.back();
    }
    std::vector<float> kernel;
    for (const double weight : weights) {
        kernel.push_back(static_cast<float>(weight / sum));
    }
    return kernel;
}

/// Each part of the kernel weighs the row's values as a whole; what is zero at the row's ends is left out, as
/// a wide blur of a small picture has much of it.
void weigh_row(const std::vector<float>& row, std::vector<float>& result, const std::vector<float>& kernel) {
    const auto is_covered = [](float value) { return value != 0; };
    const auto count = static_cast<std::ptrdiff_t>(row.size());
    const auto begin = std::find_if(row.begin(), row.end(), is_covered) - row.begin();
    const auto end = row.rend() - std::find_if(row.rbegin(), row.rend(), is_covered);
    const auto reach = static_cast<std::ptrdiff_t>(kernel.size() / 2);
    std::fill(result.begin(), result.end(), 0.0f);
    for (std::ptrdiff_t k = -reach; begin < end && k <= reach; ++k) {
        const float weight = kernel[static_cast<std::size_t>(k + reach)];
        const std::ptrdiff_t first = std::max(begin, -k);
        const std::ptrdiff_t last = std::min(end, count - k);
        const float* const from = row.data();
        float* const to = result.data() + k;
        for (std::ptrdiff_t i = first; i < last; ++i) {
            to[i] += weight * from[i];
        }
    }
}

void blur_rows(std::vector<float>& plane, int width, int height, double deviation) {
    if (deviation <= 0) {
        return;
    }
    const std::vector<float> kernel = bell(deviation);
    std::vector<float> row(static_cast<std::size_t>(width));
    std::vector<float> result(row.size());
    auto place = plane.begin();
    for (int y = 0; y < height; ++y) {
        std::copy_n(place, width, row.begin());
        weigh_row(row, result, kernel);
        place = std::copy(result.begin(), result.end(), place);
    }
}

std::vector<float> flipped(const std::vector<float>& plane, int width, int height) {
    std::vector<float> result(plane.size());
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            result[static_cast<std::size_t>(x) * static_cast<std::size_t>(height) +
                   static_cast<std::size_t>(y)] =
                plane[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
        }
    }
    return result;
}

}  // namespace

int blur_reach(double deviation) noexcept {
    return static_cast<int>(std::ceil(3 * deviation));
}

void gaussian_blur(std::vector<float>& plane, int width, int height, double deviation_x, double deviation_y) {
    blur_rows(plane, width, height, deviation_x);
    std::vector<float> columns = flipped(plane, width, height);
    blur_rows(columns, height, width, deviation_y);
    plane = flipped(columns, height, width);
}

}  // namespace completion
