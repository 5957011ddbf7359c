#pragma once

#include "d2d/scene/IDrawingContext.h"
#include "d2d/ui/IScrollBarStyle.h"
#include "d2d/ui/IStyle.h"

namespace d2d::ui {

/// How scroll areas look. `margins` are the thicknesses of the area's four margins, in pixels.
struct IScrollAreaStyle : IStyle {
    /// The style of the area's bars.
    virtual com::ptr<IScrollBarStyle> get_scroll_bar_style() = 0;
    /// What the margins and their separators leave of `rect`.
    virtual D2D_RECT_F content_rect(D2D_RECT_F rect, D2D_RECT_F margins) = 0;
    /// The lines between the margins and the content.
    virtual void draw_separators(scene::IDrawingContext* context, D2D_RECT_F rect, D2D_RECT_F margins) = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IScrollAreaStyle> : com::extends<d2d::ui::IStyle> {
    static constexpr GUID id = com::guid("54941771-719C-470F-9434-9109C7EFAC60");
};
