#include "controls/default_style_looks.h"
#include "controls/style_rules.h"
#include "d2d/factory.h"
#include "scene/rectangle.h"

namespace d2d {
namespace {

/// How far down a label has to move to stand in the middle of `rect`.
float centered_vertically(const D2D_RECT_F& rect, const D2D_RECT_F& label) noexcept {
    return rect.top + ((rect.bottom - rect.top) - (label.bottom - label.top)) * 0.5f - label.top;
}

com::ptr<ID2D1EllipseGeometry> circle(D2D_POINT_2F center, float radius) {
    return factory::create_ellipse_geometry({center, radius, radius});
}

}  // namespace

D2D_MATRIX_3X2_F default_button_style::place_label(D2D_RECT_F rect, ui::ILabel* label) {
    const D2D_RECT_F own = label->get_rect();
    const float x = rect.left + ((rect.right - rect.left) - (own.right - own.left)) * 0.5f - own.left;
    return scene::translation_matrix(x, centered_vertically(rect, own));
}

com::ptr<scene::IBrush> default_button_style::label_brush(bool enabled, bool, bool down, bool checked) {
    if (!enabled) return base().brush("disabled.text");
    return base().brush(down || checked ? "down.text" : "idle.text");
}

void default_button_style::draw(scene::IDrawingContext* context, D2D_RECT_F rect, bool enabled, bool hot,
                                bool down, bool checked, bool focused) {
    const auto shape = factory::create_rounded_rect_geometry({scene::inset(rect, 0.5f), 4, 4});
    base().fill(context, shape.get(), background_key(enabled, hot, down, checked));
    base().stroke(context, shape.get(), outline_key(enabled, hot, focused));
}

template <class Interface>
D2D_MATRIX_3X2_F default_mark_style<Interface>::place_label(D2D_RECT_F rect, ui::ILabel* label) {
    constexpr float gap = 2;
    const D2D_RECT_F own = label->get_rect();
    const float x = rect.left + (rect.bottom - rect.top) + gap - own.left;
    return scene::translation_matrix(x, centered_vertically(rect, own));
}

template <class Interface>
com::ptr<scene::IBrush> default_mark_style<Interface>::label_brush(bool enabled, bool, bool, bool) {
    return this->base().brush(enabled ? "idle.text" : "disabled.text");
}

template class default_mark_style<ui::ICheckBoxStyle>;
template class default_mark_style<ui::IRadioButtonStyle>;

void default_check_box_style::draw(scene::IDrawingContext* context, D2D_RECT_F rect, bool enabled, bool hot,
                                   bool down, bool checked, bool focused) {
    rect.right = rect.left + (rect.bottom - rect.top);
    const D2D_RECT_F square = scene::inset(rect, 0.5f);
    const auto box = factory::create_rounded_rect_geometry({square, 4, 4});
    base().fill(context, box.get(), background_key(enabled, hot, down, false));
    base().stroke(context, box.get(), outline_key(enabled, hot, focused));
    if (!checked) return;
    const auto mark = factory::create_rounded_rect_geometry({scene::inset(square, 2.5f), 3, 3});
    base().fill(context, mark.get(), "idle.text");
}

void default_radio_button_style::draw(scene::IDrawingContext* context, D2D_RECT_F rect, bool enabled,
                                      bool hot, bool down, bool checked, bool focused) {
    const float half = (rect.bottom - rect.top) / 2;
    const D2D_POINT_2F center{rect.left + half, rect.top + half};
    const float radius = half - 0.5f;
    const auto button = circle(center, radius);
    base().fill(context, button.get(), background_key(enabled, hot, down, false));
    base().stroke(context, button.get(), outline_key(enabled, hot, focused));
    if (checked) base().fill(context, circle(center, radius - 3).get(), "idle.text");
}

}  // namespace d2d
