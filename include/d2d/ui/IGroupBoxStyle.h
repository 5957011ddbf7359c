#pragma once

#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/IStyle.h"

namespace d2d::ui {

/// How group boxes look.
struct IGroupBoxStyle : IStyle {
    /// The frame. `label_rect` is where a caption would be; empty without one.
    virtual void draw(scene::IDrawingContext* context, D2D_RECT_F rect, D2D_RECT_F label_rect) = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IGroupBoxStyle> : com::extends<d2d::ui::IStyle> {
    static constexpr GUID id = com::guid("DACC7FF3-7A34-4A9D-B793-F9D00111E820");
};
