#pragma once

#include "outline.h"
#include "stroke_style.h"

namespace completion {

/// A connected piece of a stroke's centre line: a whole figure, or one dash of it.
struct stroke_run {
    figure line;
    D2D1_CAP_STYLE start_cap = D2D1_CAP_STYLE_FLAT;
    D2D1_CAP_STYLE end_cap = D2D1_CAP_STYLE_FLAT;
    /// The direction of a run that has no length.
    point direction{1, 0};
};

/// Cuts a figure into what is drawn of it; equal points that follow each other become one.
[[nodiscard]] std::vector<stroke_run> runs_of(const figure& whole, const stroke_style& style, double width);

}  // namespace completion
