#include "controls/default_style_looks.h"
#include "controls/style_rules.h"
#include "d2d/factory.h"
#include "scene/rectangle.h"

namespace d2d {

void default_command_strip_style::draw_outline(scene::IDrawingContext* context, ID2D1Geometry* shape,
                                               bool hot, bool focused) {
    context->foreground();  // over the cells, which are children
    base().stroke(context, shape, outline_key(true, hot, focused));
}

void default_command_strip_style::fill_background(scene::IDrawingContext* context, ID2D1Geometry* shape,
                                                  bool hot, bool down) {
    base().fill(context, shape, background_key(true, hot, down, false));
}

com::ptr<scene::IBrush> default_popup_options_style::label_brush(bool enabled, bool hot) {
    if (!enabled) return base().brush("disabled.text");
    return base().brush(hot ? "hot.text" : "idle.text");
}

void default_popup_options_style::draw_frame(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot,
                                             bool focused) {
    base().fill(context, shape, background_key(true, hot, false, false));
    base().stroke(context, shape, outline_key(true, hot, focused));
}

void default_popup_options_style::draw_option(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot,
                                              bool down) {
    base().fill(context, shape, background_key(true, hot, down, false));
}

void default_group_box_style::draw(scene::IDrawingContext* context, D2D_RECT_F rect, D2D_RECT_F) {
    const auto frame = factory::create_rounded_rect_geometry({scene::inset(rect, 0.5f), 5, 5});
    base().stroke(context, frame.get(), "idle.outline");
}

}  // namespace d2d
