#include "text_snapshot.h"

#include "failure.h"
#include "line_placement.h"
#include "recording_renderer.h"

namespace completion {

namespace {

constexpr HRESULT buffer_too_small = HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER);

/// All that an operation lists into a caller's array.
template <typename Item, typename Interface>
std::vector<Item> list(Interface* object,
                       HRESULT (STDMETHODCALLTYPE Interface::*operation)(Item*, UINT32, UINT32*),
                       UINT32 guess) {
    std::vector<Item> items(guess);
    UINT32 count = 0;
    HRESULT result = (object->*operation)(items.data(), guess, &count);
    if (result == buffer_too_small) {
        items.resize(count);
        result = (object->*operation)(items.data(), count, &count);
    }
    check(result);
    items.resize(count);
    return items;
}

}  // namespace

text_snapshot::text_snapshot(IDWriteTextLayout* layout)
    : paragraph_level_(layout->GetReadingDirection() == DWRITE_READING_DIRECTION_RIGHT_TO_LEFT ? 1u : 0u) {
    const auto line_metrics = list(layout, &IDWriteTextLayout::GetLineMetrics, 8);
    const auto cluster_metrics = list(layout, &IDWriteTextLayout::GetClusterMetrics, 256);
    recording_renderer drawn(layout);
    DWRITE_TEXT_METRICS text{};
    check(layout->GetMetrics(&text));

    float top = text.top;
    auto next = cluster_metrics.begin();
    for (const DWRITE_LINE_METRICS& metrics : line_metrics) {
        placed_line line{length_, top, metrics.height, 0.0f, 0.0f, {}};
        const UINT32 end = length_ + metrics.length;
        for (; next != cluster_metrics.end() && length_ < end; ++next) {
            placed_cluster cluster{length_, next->length};
            cluster.width = next->width;
            cluster.is_newline = cluster.end() > end - metrics.newlineLength;
            cluster.is_whitespace = next->isWhitespace != 0;
            line.clusters.push_back(cluster);
            length_ += next->length;
        }
        place(line, metrics, {layout, drawn.clusters, drawn.objects, paragraph_level_});
        top += metrics.height;
        lines_.push_back(std::move(line));
    }
    if (lines_.empty()) {
        throw failure{E_UNEXPECTED};
    }
}

}  // namespace completion
