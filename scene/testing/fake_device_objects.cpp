#include "scene/testing/fake_device_objects.h"

#include "scene/testing/call_text.h"

namespace d2d::scene::fakes {

fake_solid_color_brush::fake_solid_color_brush(std::shared_ptr<device_record> shared,
                                               const D2D1_COLOR_F& initial)
    : fake_device_object(std::move(shared), &device_record::brushes), color(initial) {}

void fake_solid_color_brush::GetTransform(D2D1_MATRIX_3X2_F* transform) const {
    *transform = {{{1, 0, 0, 1, 0, 0}}};
}

void fake_solid_color_brush::SetColor(const D2D1_COLOR_F* changed) {
    color = *changed;
    record->calls.push_back(call_text("SetColor", color));
}

fake_bitmap::fake_bitmap(std::shared_ptr<device_record> shared, D2D1_SIZE_U pixels,
                         const D2D1_BITMAP_PROPERTIES& wanted)
    : fake_device_object(std::move(shared), &device_record::bitmaps), size(pixels), properties(wanted) {}

void fake_bitmap::GetDpi(FLOAT* x, FLOAT* y) const {
    *x = properties.dpiX;
    *y = properties.dpiY;
}

}  // namespace d2d::scene::fakes
