#pragma once

#include <windows.h>

#include <dwrite.h>

#include <span>
#include <vector>

namespace completion {

/// A cluster where it stands in the layout, in the layout's coordinates.
struct placed_cluster {
    UINT32 position;
    UINT32 length;
    float left = 0.0f;
    float width = 0.0f;
    float top = 0.0f;  ///< of the font's box
    float height = 0.0f;
    UINT32 bidi_level = 0;
    bool placed = false;
    bool is_newline = false;
    bool is_whitespace = false;
    bool is_text = true;
    bool is_trimmed = false;

    [[nodiscard]] bool leftwards() const noexcept { return bidi_level % 2 != 0; }
    [[nodiscard]] float right() const noexcept { return left + width; }
    [[nodiscard]] float leading() const noexcept { return leftwards() ? right() : left; }
    [[nodiscard]] float trailing() const noexcept { return leftwards() ? left : right(); }
    [[nodiscard]] UINT32 end() const noexcept { return position + length; }
};

/// A line, its clusters in the order of the text.
struct placed_line {
    UINT32 position;
    float top;
    float height;
    float left;  ///< with white space at its end
    float right;
    std::vector<placed_cluster> clusters;

    [[nodiscard]] float bottom() const noexcept { return top + height; }
};

/// Where everything of a layout stands at this moment.
class text_snapshot {
public:
    /// Throws completion::failure.
    explicit text_snapshot(IDWriteTextLayout* layout);

    /// At least one, also without text.
    [[nodiscard]] std::span<const placed_line> lines() const noexcept { return lines_; }

    /// Of the text, in UTF-16 units.
    [[nodiscard]] UINT32 length() const noexcept { return length_; }

    /// Odd when the paragraphs run from right to left.
    [[nodiscard]] UINT32 paragraph_level() const noexcept { return paragraph_level_; }

private:
    std::vector<placed_line> lines_;
    UINT32 length_ = 0;
    UINT32 paragraph_level_;
};

}  // namespace completion
