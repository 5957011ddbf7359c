#include "frame_rate_gauge.h"

#include <cmath>

namespace completion {

void frame_rate_gauge::restart(double now) noexcept {
    start_ = now;
    updates_ = 0;
}

std::optional<UINT> frame_rate_gauge::count(double now) noexcept {
    constexpr double span = 1.0;
    ++updates_;
    const double elapsed = now - start_;
    if (elapsed < span) {
        return std::nullopt;
    }
    const auto rate = static_cast<UINT>(std::lround(updates_ / elapsed));
    restart(now);
    return rate;
}

}  // namespace completion
