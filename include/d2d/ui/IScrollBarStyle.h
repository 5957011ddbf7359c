#pragma once

#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/IStyle.h"

namespace d2d::ui {

/// How scroll bars look. Rectangles are in the space of the node that is drawn, in pixels.
struct IScrollBarStyle : IStyle {
    virtual void draw_thumb(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot, bool down) = 0;
    virtual void draw_track(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot, bool down) = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IScrollBarStyle> : com::extends<d2d::ui::IStyle> {
    static constexpr GUID id = com::guid("56F6BC8B-81C9-4598-90E3-6C46C181FAF5");
};
