#pragma once

#include "recording_renderer.h"
#include "text_snapshot.h"

namespace completion {

/// What the lines of a layout are placed by.
struct placement_context {
    IDWriteTextLayout* layout;
    const std::vector<glyph_cluster>& clusters;  ///< as drawn
    std::vector<drawn_object>& objects;  ///< drawn and not yet placed; one may stand at several places
    UINT32 paragraph_level;
};

/// Gives the clusters of a line, and the line, their places: text and inline objects where they are drawn,
/// what trimming hid at the sign that stands for it, and the white space at the end, which isn't drawn,
/// behind the rest in the paragraph's direction.
void place(placed_line& line, const DWRITE_LINE_METRICS& metrics, const placement_context& context);

}  // namespace completion
