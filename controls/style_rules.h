#pragma once

#include <string_view>

namespace d2d {

// Which key a control's background and outline come from, for all that are pressed: buttons, command strips,
// popup options.

[[nodiscard]] constexpr std::string_view background_key(bool enabled, bool hot, bool down,
                                                        bool checked) noexcept {
    if (!enabled) return hot ? "hot.disabled.background" : "idle.disabled.background";
    if (down) return "down.background";
    if (checked) return "checked.background";
    return hot ? "hot.background" : "idle.background";
}

/// A disabled control does not show the focus.
[[nodiscard]] constexpr std::string_view outline_key(bool enabled, bool hot, bool focused) noexcept {
    if (!enabled) return hot ? "hot.disabled.outline" : "idle.disabled.outline";
    return hot || focused ? "hot.outline" : "idle.outline";
}

}  // namespace d2d
