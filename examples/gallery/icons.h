#pragma once

#include "com/ptr.h"

#include <string_view>

#include <d2d1.h>

/// Icons, each the text of an SVG path in a square of 24 by 24.
namespace gallery::icons {

inline constexpr std::string_view left = "M15.5 4 L18 6.5 L12.5 12 L18 17.5 L15.5 20 L7.5 12 Z";
inline constexpr std::string_view right = "M8.5 4 L6 6.5 L11.5 12 L6 17.5 L8.5 20 L16.5 12 Z";
inline constexpr std::string_view plus = "M10.5 4 h3 v6.5 h6.5 v3 h-6.5 v6.5 h-3 v-6.5 h-6.5 v-3 h6.5 Z";
inline constexpr std::string_view minus = "M4 10.5 h16 v3 h-16 Z";
inline constexpr std::string_view heart =
    "M12 20.5 C5 15.5 2.5 12 2.5 8.6 C2.5 5.8 4.6 3.8 7.2 3.8 C9.2 3.8 11 4.9 12 6.6"
    "C13 4.9 14.8 3.8 16.8 3.8 C19.4 3.8 21.5 5.8 21.5 8.6 C21.5 12 19 15.5 12 20.5 Z";
inline constexpr std::string_view star =
    "M12 2.5 L14.9 9 L22 9.7 L16.7 14.4 L18.2 21.4 L12 17.8 L5.8 21.4 L7.3 14.4 L2 9.7 L9.1 9 Z";
inline constexpr std::string_view sun =
    "M12 7 C14.8 7 17 9.2 17 12 C17 14.8 14.8 17 12 17 C9.2 17 7 14.8 7 12 C7 9.2 9.2 7 12 7 Z"
    "M11 1.5 h2 v3.5 h-2 Z M11 19 h2 v3.5 h-2 Z M1.5 11 h3.5 v2 h-3.5 Z M19 11 h3.5 v2 h-3.5 Z"
    "M3.9 5.3 L5.3 3.9 L7.8 6.4 L6.4 7.8 Z M16.2 17.6 L17.6 16.2 L20.1 18.7 L18.7 20.1 Z"
    "M18.7 3.9 L20.1 5.3 L17.6 7.8 L16.2 6.4 Z M6.4 16.2 L7.8 17.6 L5.3 20.1 L3.9 18.7 Z";
inline constexpr std::string_view boat =
    "M11.2 2 V15 H3.8 Z M12.8 5 V15 H19.6 Z M2 16.5 H22 C21.2 19.6 19.4 21.5 17 21.5 H7 C4.6 21.5 2.8 19.6 2 "
    "16.5 Z";
inline constexpr std::string_view drop =
    "M12 2 C16 7.2 18.5 10.9 18.5 14.6 C18.5 18.6 15.6 21.5 12 21.5 C8.4 21.5 5.5 18.6 5.5 14.6"
    "C5.5 10.9 8 7.2 12 2 Z";
inline constexpr std::string_view anchor =
    "M12 1 C10.1 1 8.6 2.5 8.6 4.4 C8.6 5.9 9.6 7.1 10.9 7.6 V9.4 H7.5 V11.8 H10.9 V20.2"
    "C7.9 19.8 5.4 17.9 4.5 15.3 L6.6 15.6 L3 10.8 L.4 16.2 L2.3 15.8"
    "C3.5 20.2 7.4 23 12 23 C16.6 23 20.5 20.2 21.7 15.8 L23.6 16.2 L21 10.8 L17.4 15.6 L19.5 15.3"
    "C18.6 17.9 16.1 19.8 13.1 20.2 V11.8 H16.5 V9.4 H13.1 V7.6 C14.4 7.1 15.4 5.9 15.4 4.4"
    "C15.4 2.5 13.9 1 12 1 Z"
    "M12 3 C12.8 3 13.4 3.6 13.4 4.4 C13.4 5.2 12.8 5.8 12 5.8 C11.2 5.8 10.6 5.2 10.6 4.4"
    "C10.6 3.6 11.2 3 12 3 Z";

inline constexpr std::string_view text_left =
    "M3 4 h18 v2.4 h-18 Z M3 8.8 h11 v2.4 h-11 Z M3 13.6 h18 v2.4 h-18 Z M3 18.4 h11 v2.4 h-11 Z";
inline constexpr std::string_view text_centre =
    "M3 4 h18 v2.4 h-18 Z M6.5 8.8 h11 v2.4 h-11 Z M3 13.6 h18 v2.4 h-18 Z M6.5 18.4 h11 v2.4 h-11 Z";
inline constexpr std::string_view text_right =
    "M3 4 h18 v2.4 h-18 Z M10 8.8 h11 v2.4 h-11 Z M3 13.6 h18 v2.4 h-18 Z M10 18.4 h11 v2.4 h-11 Z";
inline constexpr std::string_view text_full =
    "M3 4 h18 v2.4 h-18 Z M3 8.8 h18 v2.4 h-18 Z M3 13.6 h18 v2.4 h-18 Z M3 18.4 h18 v2.4 h-18 Z";

// Of the pages.
inline constexpr std::string_view buttons_page =
    "M4 6 h16 C21.1 6 22 6.9 22 8 v8 C22 17.1 21.1 18 20 18 h-16 C2.9 18 2 17.1 2 16 v-8 C2 6.9 2.9 6 4 6 Z"
    "M7 11 v2 h10 v-2 Z";
inline constexpr std::string_view labels_page =
    "M4 4 h16 v4.5 h-2.5 v-2 h-4 v11 h2.5 v2.5 h-8 v-2.5 h2.5 v-11 h-4 v2 h-2.5 Z";
inline constexpr std::string_view scrolling_page =
    "M12 1.5 L17 7.5 H7 Z M12 22.5 L7 16.5 H17 Z M12 9.2 C13.6 9.2 14.8 10.4 14.8 12"
    "C14.8 13.6 13.6 14.8 12 14.8 C10.4 14.8 9.2 13.6 9.2 12 C9.2 10.4 10.4 9.2 12 9.2 Z";

inline constexpr std::string_view lists_page =
    "M3 4 h3 v3 h-3 Z M8 4 h13 v3 h-13 Z M3 10.5 h3 v3 h-3 Z M8 10.5 h13 v3 h-13 Z M3 17 h3 v3 h-3 Z"
    "M8 17 h13 v3 h-13 Z";
inline constexpr std::string_view tree_page =
    "M3 3 h8 v4 h-3 v3.5 h5 v-1.5 h8 v5 h-8 v-1.5 h-5 v5.5 h5 v-1.5 h8 v5 h-8 v-1.5 h-7 v-13 h-3 Z";
inline constexpr std::string_view text_page =
    "M8 3 h3 C11.4 3 11.7 3.1 12 3.4 C12.3 3.1 12.6 3 13 3 h3 v2 h-3 v14 h3 v2 h-3 C12.6 21 12.3 20.9 12 20.6"
    "C11.7 20.9 11.4 21 11 21 h-3 v-2 h3 v-14 h-3 Z M2 7 h7 v2 h-5 v6 h5 v2 h-7 Z M15 7 h7 v10 h-7 v-2 h5 "
    "v-6 "
    "h-5 Z";

/// An icon with its middle at (0, 0) and sides of `size` pixels.
[[nodiscard]] com::ptr<ID2D1Geometry> geometry(std::string_view icon, float size);

}  // namespace gallery::icons
