#include "cluster_repair.h"

#include "recording_renderer.h"

#include <algorithm>
#include <iterator>

namespace completion {

namespace {

/// What a part of a cluster has of its own; a line can break only behind the whole.
DWRITE_CLUSTER_METRICS piece(const DWRITE_CLUSTER_METRICS& whole, const glyph_cluster& part, UINT32 end) {
    DWRITE_CLUSTER_METRICS result = whole;
    result.width = part.width;
    result.length = static_cast<UINT16>(part.length);
    result.canWrapLineAfter = part.position + part.length == end ? whole.canWrapLineAfter : UINT16{0};
    return result;
}

}  // namespace

std::vector<DWRITE_CLUSTER_METRICS> repaired_clusters(IDWriteTextLayout* layout,
                                                      const std::vector<DWRITE_CLUSTER_METRICS>& clusters) {
    if (std::ranges::all_of(clusters, [](const auto& cluster) { return cluster.length == 1; })) {
        return clusters;
    }
    const recording_renderer drawn(layout);
    std::vector<DWRITE_CLUSTER_METRICS> repaired;
    repaired.reserve(clusters.size());
    auto part = drawn.clusters.begin();
    UINT32 end = 0;
    for (const DWRITE_CLUSTER_METRICS& cluster : clusters) {
        end += cluster.length;
        const auto next =
            std::find_if(part, drawn.clusters.end(), [end](const auto& p) { return p.position >= end; });
        if (next - part < 2) {
            repaired.push_back(cluster);
        } else {
            std::transform(part, next, std::back_inserter(repaired),
                           [&](const glyph_cluster& p) { return piece(cluster, p, end); });
        }
        part = next;
    }
    return repaired;
}

}  // namespace completion
