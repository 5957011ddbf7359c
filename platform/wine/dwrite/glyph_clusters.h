#pragma once

#include <windows.h>

#include <dwrite.h>

#include <vector>

namespace completion {

/// A cluster of characters as a glyph run draws it.
struct glyph_cluster {
    UINT32 position;  ///< in the text
    UINT32 length;    ///< UTF-16 units
    float left;
    float width;
    UINT32 bidi_level;
    float top;     ///< of the font's box, the line gap above
    float height;  ///< of the font's box
};

/// Appends the clusters of a run drawn from the baseline origin (x, y), in the order of the text.
///
/// Wine 8 takes any character that its tables call diacritic, also a letter with an umlaut, for a mark on the
/// character before it. Where each character has a glyph of its own, such a cluster is taken apart again, so
/// that a cluster goes on only over characters that combine.
void append_glyph_clusters(float x, float y, const DWRITE_GLYPH_RUN& run,
                           const DWRITE_GLYPH_RUN_DESCRIPTION& description,
                           std::vector<glyph_cluster>& clusters);

}  // namespace completion
