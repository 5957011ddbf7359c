#pragma once

#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/IStyle.h"

namespace d2d::ui {

/// How line edits look. In pixels.
struct ILineEditStyle : IStyle {
    /// Asked whenever an edit is drawn, which fails with it; but text that is not selected is black.
    virtual com::ptr<scene::IBrush> text_brush(bool enabled) = 0;
    virtual com::ptr<scene::IBrush> selection_background_brush() = 0;
    /// Asked once, when an edit is made.
    virtual _D3DCOLORVALUE selected_text_color() = 0;
    /// Asked for each layout of an edit without a format of its own.
    virtual com::ptr<scene::ITextFormat> text_format() = 0;
    /// What a frame adds to the size of the text.
    virtual D2D_SIZE_F padding() = 0;
    /// How far from the frame's upper left corner the text starts.
    virtual D2D_SIZE_F text_inset() = 0;
    virtual void draw_frame(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot, bool focused) = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ILineEditStyle> : com::extends<d2d::ui::IStyle> {
    static constexpr GUID id = com::guid("ACF7D3D3-C1EE-485B-A3D0-61EA8FAA5742");
};
