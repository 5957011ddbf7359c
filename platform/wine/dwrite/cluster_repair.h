#pragma once

#include <windows.h>

#include <dwrite.h>

#include <vector>

namespace completion {

/// The clusters of a layout, taken apart where it draws several in one (see append_glyph_clusters); the same
/// ones when it doesn't.
[[nodiscard]] std::vector<DWRITE_CLUSTER_METRICS> repaired_clusters(
    IDWriteTextLayout* layout, const std::vector<DWRITE_CLUSTER_METRICS>& clusters);

}  // namespace completion
