#pragma once

#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/ILabel.h"
#include "d2d/ui/IStyle.h"

namespace d2d::ui {

/// How push buttons look. Rectangles are in the control's space, in pixels.
struct IButtonStyle : IStyle {
    /// The transform of the label's node for a label that is placed in `rect`, in the control's space.
    virtual D2D_MATRIX_3X2_F place_label(D2D_RECT_F rect, ILabel* label) = 0;
    virtual com::ptr<scene::IBrush> label_brush(bool enabled, bool hot, bool down, bool checked) = 0;
    /// Draws all but the label.
    virtual void draw(scene::IDrawingContext* context, D2D_RECT_F rect, bool enabled, bool hot, bool down,
                      bool checked, bool focused) = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IButtonStyle> : com::extends<d2d::ui::IStyle> {
    static constexpr GUID id = com::guid("2F5B5897-F93D-4678-84CB-5D7C53B72DD6");
};
