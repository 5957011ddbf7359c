#include "glyph_clusters.h"

#include <algorithm>
#include <numeric>
#include <span>

namespace completion {

namespace {

bool combines(wchar_t character) noexcept {
    WORD type = 0;
    GetStringTypeW(CT_CTYPE3, &character, 1, &type);
    return (type & C3_NONSPACING) != 0 && (type & C3_ALPHA) == 0;
}

/// A piece of a cluster: UTF-16 units and glyphs.
struct part {
    UINT32 length;
    UINT32 glyphs;
};

/// One part for each character and the marks on it, if every character has its own glyph; else one for all.
std::vector<part> parts_of(std::span<const wchar_t> text, UINT32 glyphs) {
    std::vector<part> parts;
    UINT32 characters = 0;
    for (std::size_t i = 0; i < text.size(); ++characters) {
        const bool pair = i + 1 < text.size() && IS_SURROGATE_PAIR(text[i], text[i + 1]);
        if (parts.empty() || !combines(text[i])) {
            parts.push_back({0, 0});
        }
        parts.back().length += pair ? 2 : 1;
        ++parts.back().glyphs;
        i += pair ? 2 : 1;
    }
    return characters == glyphs ? parts : std::vector{part{static_cast<UINT32>(text.size()), glyphs}};
}

/// Walks along a glyph run from its origin, in its direction.
class run_walk {
public:
    run_walk(float x, float y, const DWRITE_GLYPH_RUN& run, std::vector<glyph_cluster>& clusters)
        : pen_(x), run_(run), clusters_(clusters) {
        DWRITE_FONT_METRICS font{};
        run.fontFace->GetMetrics(&font);
        const float scale = run.fontEmSize / font.designUnitsPerEm;
        const float ascent = scale * static_cast<float>(font.ascent + font.lineGap);
        top_ = y - ascent;
        height_ = ascent + scale * static_cast<float>(font.descent);
    }

    void append(UINT32 position, UINT32 length, UINT32 first_glyph, UINT32 end_glyph) {
        const float width =
            std::accumulate(run_.glyphAdvances + first_glyph, run_.glyphAdvances + end_glyph, 0.0f);
        const bool leftwards = run_.bidiLevel % 2 != 0;
        const float left = leftwards ? pen_ - width : pen_;
        pen_ = leftwards ? left : left + width;
        clusters_.push_back({position, length, left, width, run_.bidiLevel, top_, height_});
    }

private:
    float pen_;
    float top_ = 0.0f;
    float height_ = 0.0f;
    const DWRITE_GLYPH_RUN& run_;
    std::vector<glyph_cluster>& clusters_;
};

}  // namespace

void append_glyph_clusters(float x, float y, const DWRITE_GLYPH_RUN& run,
                           const DWRITE_GLYPH_RUN_DESCRIPTION& description,
                           std::vector<glyph_cluster>& clusters) {
    run_walk walk(x, y, run, clusters);
    const std::span text(description.string, description.stringLength);
    const std::span map(description.clusterMap, description.stringLength);
    for (UINT32 first = 0, end = 0; first < text.size(); first = end) {
        for (end = first + 1; end < text.size() && map[end] == map[first]; ++end) {
        }
        // Characters of a run that has no glyphs at all are mapped to some nevertheless.
        UINT32 glyph = std::min<UINT32>(map[first], run.glyphCount);
        const UINT32 end_glyph =
            end < text.size() ? std::min<UINT32>(map[end], run.glyphCount) : run.glyphCount;
        UINT32 position = description.textPosition + first;
        for (const part& piece : parts_of(text.subspan(first, end - first), end_glyph - glyph)) {
            walk.append(position, piece.length, glyph, glyph + piece.glyphs);
            position += piece.length;
            glyph += piece.glyphs;
        }
    }
}

}  // namespace completion
