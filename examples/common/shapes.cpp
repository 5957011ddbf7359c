#include "common/shapes.h"

#include "d2d/factory.h"
#include "d2d/scene/ITextFormat.h"

#include <cmath>

namespace sketch {
namespace {

/// A path geometry filled by `draw(sink)`.
template <class Draw>
com::ptr<ID2D1Geometry> path(Draw&& draw) {
    auto geometry = d2d::factory::create_path_geometry();
    com::ptr<ID2D1GeometrySink> sink;
    com::check(geometry->Open(sink.put()));
    draw(*sink);
    com::check(sink->Close());
    return geometry;
}

}  // namespace

com::ptr<ID2D1Geometry> rectangle(float left, float top, float right, float bottom) {
    return d2d::factory::create_rectangle_geometry({left, top, right, bottom});
}

com::ptr<ID2D1Geometry> rounded(float left, float top, float right, float bottom, float radius) {
    return d2d::factory::create_rounded_rect_geometry({{left, top, right, bottom}, radius, radius});
}

com::ptr<ID2D1Geometry> circle(float x, float y, float radius) {
    return d2d::factory::create_ellipse_geometry({{x, y}, radius, radius});
}

com::ptr<ID2D1Geometry> polygon(std::initializer_list<D2D1_POINT_2F> points) {
    return path([&](ID2D1GeometrySink& sink) {
        sink.BeginFigure(*points.begin(), D2D1_FIGURE_BEGIN_FILLED);
        sink.AddLines(points.begin() + 1, static_cast<UINT32>(points.size() - 1));
        sink.EndFigure(D2D1_FIGURE_END_CLOSED);
    });
}

com::ptr<ID2D1Geometry> waves(float left, float y, float length, int count) {
    return path([=](ID2D1GeometrySink& sink) {
        sink.BeginFigure({left, y}, D2D1_FIGURE_BEGIN_HOLLOW);
        for (int i = 0; i < count; ++i) {
            const float x = left + static_cast<float>(i) * length;
            const D2D1_BEZIER_SEGMENT wave{
                {x + length / 3, y - 5}, {x + length * 2 / 3, y + 5}, {x + length, y}};
            sink.AddBezier(&wave);
        }
        sink.EndFigure(D2D1_FIGURE_END_OPEN);
    });
}

com::ptr<ID2D1Geometry> hill(float left, float right, float foot, float top) {
    return path([=](ID2D1GeometrySink& sink) {
        const float width = right - left;
        sink.BeginFigure({left, foot}, D2D1_FIGURE_BEGIN_FILLED);
        const D2D1_BEZIER_SEGMENT slopes{{left + width / 3, top}, {right - width / 3, top}, {right, foot}};
        sink.AddBezier(&slopes);
        sink.EndFigure(D2D1_FIGURE_END_CLOSED);
    });
}

com::ptr<ID2D1StrokeStyle> round_strokes() {
    return d2d::factory::create_stroke_style(D2D1_DASH_STYLE_SOLID, D2D1_CAP_STYLE_ROUND,
                                             D2D1_LINE_JOIN_ROUND, 10, 0);
}

com::ptr<IDWriteTextLayout> text(std::wstring_view what, float size, float width, DWRITE_FONT_WEIGHT weight) {
    return d2d::scene::ITextFormat::get(L"Segoe UI", weight, DWRITE_FONT_STYLE_NORMAL, size)
        ->create_layout(what, width, 0);
}

D2D_MATRIX_3X2_F turned(float degrees, float x, float y) {
    const float angle = degrees * 3.14159265f / 180;
    const float cosine = std::cos(angle);
    const float sine = std::sin(angle);
    return {{{cosine, sine, -sine, cosine, x, y}}};
}

}  // namespace sketch
