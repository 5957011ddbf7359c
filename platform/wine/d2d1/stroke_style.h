#pragma once

#include <d2d1.h>

#include <vector>

namespace completion {

/// What a stroke style object says; the defaults are those of no style.
struct stroke_style {
    D2D1_CAP_STYLE start_cap = D2D1_CAP_STYLE_FLAT;
    D2D1_CAP_STYLE end_cap = D2D1_CAP_STYLE_FLAT;
    D2D1_CAP_STYLE dash_cap = D2D1_CAP_STYLE_FLAT;
    D2D1_LINE_JOIN join = D2D1_LINE_JOIN_MITER;
    double miter_limit = 10;
    /// Dashes and gaps in turn, an even number, in stroke widths; none for a solid line.
    std::vector<double> dashes;
    double dash_offset = 0;
};

[[nodiscard]] stroke_style read_style(ID2D1StrokeStyle* style);

}  // namespace completion
