#pragma once

#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/IStyleSettings.h"

namespace d2d {

/// What the default style's looks have in common: the values, and shapes drawn in a colour of theirs.
class default_style_base {
public:
    const com::ptr<ui::IStyleSettings> settings;
    const com::ptr<scene::ITextFormat> label_format;  // of labels and line edits

    /// Throw `std::logic_error` for a key without an answer.
    [[nodiscard]] com::ptr<scene::IBrush> brush(std::string_view key) const;
    [[nodiscard]] _D3DCOLORVALUE color(std::string_view key) const;

    void fill(scene::IDrawingContext* context, ID2D1Geometry* shape, std::string_view key) const;
    /// With a line of width 1.
    void stroke(scene::IDrawingContext* context, ID2D1Geometry* shape, std::string_view key) const;

protected:
    /// Throws `std::logic_error` when the settings have no format for labels.
    explicit default_style_base(com::ptr<ui::IStyleSettings> values);
    ~default_style_base() = default;
};

}  // namespace d2d
