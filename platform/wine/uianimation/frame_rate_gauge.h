#pragma once

#include <windows.h>

#include <optional>

namespace completion {

/// Measures the rate of updates over spans of a second.
class frame_rate_gauge {
public:
    /// Begins a new span.
    void restart(double now) noexcept;

    /// Counts one update at `now` (seconds): the updates per second, rounded, when that ends a span.
    [[nodiscard]] std::optional<UINT> count(double now) noexcept;

private:
    double start_ = 0.0;
    unsigned updates_ = 0;
};

}  // namespace completion
