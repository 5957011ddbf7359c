#include "d2d/factory.h"

#include "com/check.h"
#include "host/graphics.h"
#include "host/imaging.h"

namespace d2d {

// Both holds count for themselves: a failure of the second leaves the first, as its own failure leaves
// itself.
factory::factory() {
    imaging_hold::take();
    graphics::take();
}

factory::factory(const factory&) : factory() {}

factory::~factory() {
    graphics::give_back();
    imaging_hold::give_back();
}

ID2D1Factory* factory::d2d1() noexcept {
    return graphics::d2d_factory;
}

IDWriteFactory* factory::dwrite() noexcept {
    return graphics::dwrite_factory;
}

com::ptr<ID2D1PathGeometry> factory::create_path_geometry() {
    com::ptr<ID2D1PathGeometry> made;
    com::check(d2d1()->CreatePathGeometry(made.put()));
    return made;
}

com::ptr<ID2D1EllipseGeometry> factory::create_ellipse_geometry(const D2D1_ELLIPSE& ellipse) {
    com::ptr<ID2D1EllipseGeometry> made;
    com::check(d2d1()->CreateEllipseGeometry(ellipse, made.put()));
    return made;
}

com::ptr<ID2D1RectangleGeometry> factory::create_rectangle_geometry(const D2D_RECT_F& rect) {
    com::ptr<ID2D1RectangleGeometry> made;
    com::check(d2d1()->CreateRectangleGeometry(rect, made.put()));
    return made;
}

com::ptr<ID2D1RoundedRectangleGeometry> factory::create_rounded_rect_geometry(const D2D1_ROUNDED_RECT& rect) {
    com::ptr<ID2D1RoundedRectangleGeometry> made;
    com::check(d2d1()->CreateRoundedRectangleGeometry(rect, made.put()));
    return made;
}

com::ptr<ID2D1StrokeStyle> factory::create_stroke_style(const D2D1_STROKE_STYLE_PROPERTIES& properties,
                                                        const float* dashes, unsigned dash_count) {
    com::ptr<ID2D1StrokeStyle> made;
    com::check(d2d1()->CreateStrokeStyle(properties, dashes, dash_count, made.put()));
    return made;
}

com::ptr<ID2D1StrokeStyle> factory::create_stroke_style(D2D1_DASH_STYLE dash, D2D1_CAP_STYLE cap,
                                                        D2D1_LINE_JOIN join, float miter_limit,
                                                        float dash_offset) {
    return create_stroke_style({.startCap = cap,
                                .endCap = cap,
                                .dashCap = cap,
                                .lineJoin = join,
                                .miterLimit = miter_limit,
                                .dashStyle = dash,
                                .dashOffset = dash_offset},
                               nullptr, 0);
}

}  // namespace d2d
