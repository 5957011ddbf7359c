#pragma once

#include "d2d/scene/layout/metrics.h"

#include <cstdio>
#include <string>

namespace d2d::scene::fakes {

/// "any" for what has no limit.
[[nodiscard]] inline std::string text_of(float value) {
    if (value == layout::unlimited) return "any";
    char text[32];
    std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
    return text;
}

[[nodiscard]] inline std::string text_of(const D2D_RECT_F& r) {
    return text_of(r.left) + "," + text_of(r.top) + "," + text_of(r.right) + "," + text_of(r.bottom);
}

[[nodiscard]] inline std::string text_of(D2D_SIZE_F size) {
    return text_of(size.width) + "x" + text_of(size.height);
}

[[nodiscard]] inline std::string text_of(const layout::metrics& m) {
    return "margin " + text_of(m.margin) + " min " + text_of(m.min_size) + " max " + text_of(m.max_size) +
           " preferred " + text_of(m.preferred_size);
}

}  // namespace d2d::scene::fakes
