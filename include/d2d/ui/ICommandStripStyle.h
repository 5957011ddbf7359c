#pragma once

#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/IStyle.h"

namespace d2d::ui {

/// How command strips look.
struct ICommandStripStyle : IStyle {
    /// The outline of the whole strip, over its cells.
    virtual void draw_outline(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot,
                              bool focused) = 0;
    /// The area of one cell.
    virtual void fill_background(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot,
                                 bool down) = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ICommandStripStyle> : com::extends<d2d::ui::IStyle> {
    static constexpr GUID id = com::guid("28A0A9A4-9DF4-4D60-9001-973E20CC4DC0");
};
