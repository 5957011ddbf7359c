#include "line_placement.h"

#include "owned.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace completion {

namespace {

void place_text(placed_line& line, const std::vector<glyph_cluster>& drawn) {
    auto part = std::ranges::lower_bound(drawn, line.position, {}, &glyph_cluster::position);
    for (placed_cluster& cluster : line.clusters) {
        float left = std::numeric_limits<float>::max();
        float width = 0.0f;
        for (; part != drawn.end() && part->position < cluster.end(); ++part) {
            left = std::min(left, part->left);
            width += part->width;
            cluster.top = part->top;
            cluster.height = part->height;
            cluster.bidi_level = part->bidi_level;
            cluster.placed = true;
        }
        if (cluster.placed) {
            cluster.left = left;
            cluster.width = width;
        }
    }
}

owned<IDWriteInlineObject> inline_object_at(IDWriteTextLayout* layout, UINT32 position) {
    DWRITE_TEXT_RANGE range{};
    return make<IDWriteInlineObject>(
        [&](IDWriteInlineObject** object) { return layout->GetInlineObject(position, object, &range); });
}

/// The drawing of an inline object says where, but not for which characters: the next one of the same object.
void place_inline_objects(placed_line& line, const placement_context& context) {
    for (placed_cluster& cluster : line.clusters) {
        if (cluster.placed) {
            continue;
        }
        const auto object = inline_object_at(context.layout, cluster.position);
        const auto drawn = std::ranges::find(context.objects, object.get(), &drawn_object::object);
        if (drawn != context.objects.end()) {
            cluster.left = drawn->left;
            cluster.top = line.top;
            cluster.height = line.height;
            cluster.bidi_level = drawn->right_to_left ? 1u : 0u;
            cluster.is_text = false;
            cluster.placed = true;
            context.objects.erase(drawn);
        }
    }
}

/// The edges of what is placed; nothing for a line that draws nothing.
struct extent {
    float left;
    float right;
};

std::optional<extent> placed_extent(const placed_line& line) {
    std::optional<extent> result;
    for (const placed_cluster& cluster : line.clusters) {
        if (cluster.placed) {
            result = result ? extent{std::min(result->left, cluster.left),
                                     std::max(result->right, cluster.right())}
                            : extent{cluster.left, cluster.right()};
        }
    }
    return result;
}

/// Where a line without visible text begins.
float empty_line_start(IDWriteTextLayout* layout, UINT32 paragraph_level) {
    const float width = layout->GetMaxWidth();
    switch (layout->GetTextAlignment()) {
        case DWRITE_TEXT_ALIGNMENT_CENTER:
            return width / 2;
        case DWRITE_TEXT_ALIGNMENT_TRAILING:
            return paragraph_level != 0 ? 0.0f : width;
        default:
            return paragraph_level != 0 ? width : 0.0f;
    }
}

float width_of_sign(IDWriteTextLayout* layout) {
    DWRITE_TRIMMING options{};
    const auto sign = make<IDWriteInlineObject>(
        [&](IDWriteInlineObject** object) { return layout->GetTrimming(&options, object); });
    DWRITE_INLINE_OBJECT_METRICS metrics{};
    return sign && SUCCEEDED(sign->GetMetrics(&metrics)) ? metrics.width : 0.0f;
}

/// Makes one cluster of what trimming hid, with the sign's width.
void merge_trimmed(placed_line& line, IDWriteTextLayout* layout) {
    const auto hidden = [](const placed_cluster& cluster) { return !cluster.placed; };
    const auto first = std::ranges::find_if(line.clusters, hidden);
    const auto end = std::find_if_not(first, line.clusters.end(), hidden);
    if (std::all_of(first, end, [](const placed_cluster& cluster) { return cluster.is_whitespace; })) {
        return;
    }
    for (auto cluster = std::next(first); cluster != end; ++cluster) {
        first->length += cluster->length;
    }
    first->width = width_of_sign(layout);
    first->is_trimmed = true;
    first->is_newline = false;
    line.clusters.erase(std::next(first), end);
}

/// Places what isn't drawn, one behind the other, from the end of the rest.
void place_rest(placed_line& line, const placement_context& context) {
    const auto content = placed_extent(line);
    const bool leftwards = context.paragraph_level != 0;
    const float start = empty_line_start(context.layout, context.paragraph_level);
    float pen = !content ? start : leftwards ? content->left : content->right;
    float top = line.top;
    float height = line.height;
    for (placed_cluster& cluster : line.clusters) {
        if (!cluster.placed) {
            cluster.left = leftwards ? pen - cluster.width : pen;
            cluster.top = top;
            cluster.height = height;
            cluster.bidi_level = context.paragraph_level;
            cluster.placed = true;
            pen = cluster.trailing();
        }
        if (cluster.is_text) {
            top = cluster.top;
            height = cluster.height;
        }
    }
    const auto whole = placed_extent(line).value_or(extent{start, start});
    line.left = whole.left;
    line.right = whole.right;
}

}  // namespace

void place(placed_line& line, const DWRITE_LINE_METRICS& metrics, const placement_context& context) {
    place_text(line, context.clusters);
    if (!context.objects.empty()) {
        place_inline_objects(line, context);
    }
    if (metrics.isTrimmed) {
        merge_trimmed(line, context.layout);
    }
    place_rest(line, context);
}

}  // namespace completion
