#pragma once

#include <string_view>
#include <vector>

namespace tide_table {

/// A port and the chief terms of its tide: made up for the picture, of no use at sea.
struct port {
    std::wstring_view name;
    std::wstring_view country;
    double mean_level;  ///< metres
    double lunar;       ///< metres, half the range of the tide twice a lunar day
    double solar;       ///< metres, of that twice a solar day
    double delay;       ///< hours after the first port
};

constexpr int hours_shown = 72;

[[nodiscard]] const std::vector<port>& ports();

/// The height in metres at an hour from the start of the table.
[[nodiscard]] double height(const port& at, double hour);
[[nodiscard]] bool is_high_water(const port& at, int hour);
[[nodiscard]] double greatest_range(const port& at);

}  // namespace tide_table
