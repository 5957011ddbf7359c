#include "controls/default_style_looks.h"
#include "d2d/factory.h"
#include "scene/rectangle.h"

namespace d2d {

com::ptr<scene::IBrush> default_label_style::text_brush(bool) {
    return base().brush("idle.text");
}

com::ptr<scene::ITextFormat> default_label_style::text_format() {
    return base().label_format;
}

com::ptr<scene::IBrush> default_line_edit_style::text_brush(bool) {
    return base().brush("line-edit.idle.text");
}

com::ptr<scene::IBrush> default_line_edit_style::selection_background_brush() {
    return base().brush("line-edit.selected.background");
}

_D3DCOLORVALUE default_line_edit_style::selected_text_color() {
    return base().color("line-edit.selected.text");
}

com::ptr<scene::ITextFormat> default_line_edit_style::text_format() {
    return base().label_format;
}

void default_line_edit_style::draw_frame(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot,
                                         bool focused) {
    const auto frame = factory::create_rectangle_geometry(scene::inset(rect, 0.5f));
    base().stroke(context, frame.get(), hot || focused ? "line-edit.hot.outline" : "line-edit.idle.outline");
}

}  // namespace d2d
