#pragma once

#include <span>
#include <string_view>

namespace gallery {

/// A harbour, as a pilot's book might list it.
struct port {
    std::wstring_view name;
    std::wstring_view country;
    std::wstring_view water;
    int berths;
    int depth;  ///< in metres
    int ships;  ///< that call in a day
};

/// By name.
[[nodiscard]] std::span<const port> all_ports();

}  // namespace gallery
