#include "stroke_style.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>

namespace completion {

namespace {

std::vector<double> dashes_of(ID2D1StrokeStyle* style) {
    static constexpr std::array<double, 6> dot{0, 2};
    static constexpr std::array<double, 6> dash{2, 2};
    static constexpr std::array<double, 6> dash_dot_dot{2, 2, 0, 2, 0, 2};
    const auto first = [](const std::array<double, 6>& pattern, std::ptrdiff_t count) {
        return std::vector<double>(pattern.begin(), pattern.begin() + count);
    };
    switch (style->GetDashStyle()) {
        case D2D1_DASH_STYLE_DASH:
            return first(dash, 2);
        case D2D1_DASH_STYLE_DOT:
            return first(dot, 2);
        case D2D1_DASH_STYLE_DASH_DOT:
            return first(dash_dot_dot, 4);
        case D2D1_DASH_STYLE_DASH_DOT_DOT:
            return first(dash_dot_dot, 6);
        case D2D1_DASH_STYLE_CUSTOM: {
            std::vector<float> own(style->GetDashesCount());
            style->GetDashes(own.data(), static_cast<UINT>(own.size()));
            std::vector<double> dashes(own.begin(), own.end());
            if (dashes.size() % 2 != 0) {
                dashes.insert(dashes.end(), own.begin(), own.end());
            }
            return dashes;
        }
        default:
            return {};
    }
}

}  // namespace

stroke_style read_style(ID2D1StrokeStyle* style) {
    stroke_style result;
    if (!style) {
        return result;
    }
    result.start_cap = style->GetStartCap();
    result.end_cap = style->GetEndCap();
    result.dash_cap = style->GetDashCap();
    result.join = style->GetLineJoin();
    result.miter_limit = std::max(1.0, static_cast<double>(style->GetMiterLimit()));
    result.dashes = dashes_of(style);
    result.dash_offset = style->GetDashOffset();
    return result;
}

}  // namespace completion
