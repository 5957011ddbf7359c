#pragma once

#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/IStyle.h"

namespace d2d::ui {

/// How popup options and their open list look.
struct IPopupOptionsStyle : IStyle {
    /// `hot`: the drag that chooses is over the label's row.
    virtual com::ptr<scene::IBrush> label_brush(bool enabled, bool hot) = 0;
    /// The frame of the closed control, or of the list: that one is focused and never hot.
    virtual void draw_frame(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot,
                            bool focused) = 0;
    /// One row of the list. `hot`: the mouse is over it; `down`: the drag that chooses is.
    virtual void draw_option(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot, bool down) = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IPopupOptionsStyle> : com::extends<d2d::ui::IStyle> {
    static constexpr GUID id = com::guid("AAABC95B-6D0F-4841-92C4-8DEC33BDB35C");
};
