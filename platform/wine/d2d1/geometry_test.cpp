#include "geometry_test.h"

namespace completion::test {

double recording_sink::signed_area() const {
    double doubled = 0;
    for (const auto& figure : figures) {
        for (std::size_t i = 0; i < figure.size(); ++i) {
            const D2D1_POINT_2F a = figure[i];
            const D2D1_POINT_2F b = figure[(i + 1) % figure.size()];
            doubled += double{a.x} * double{b.y} - double{a.y} * double{b.x};
        }
    }
    return std::abs(doubled) / 2;
}

bool recording_sink::contains(D2D1_POINT_2F p) const {
    bool inside = false;
    for (const auto& figure : figures) {
        for (std::size_t i = 0; i < figure.size(); ++i) {
            const D2D1_POINT_2F a = figure[i];
            const D2D1_POINT_2F b = figure[(i + 1) % figure.size()];
            if ((a.y <= p.y) != (b.y <= p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) {
                inside = !inside;
            }
        }
    }
    return inside;
}

geometry_test::geometry_test()
    : factory_(make<ID2D1Factory>([](ID2D1Factory** result) {
          return D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, __uuidof(ID2D1Factory), nullptr,
                                   reinterpret_cast<void**>(result));
      })) {}

owned<ID2D1RectangleGeometry> geometry_test::rectangle(float left, float top, float right,
                                                       float bottom) const {
    const D2D1_RECT_F shape{left, top, right, bottom};
    return make<ID2D1RectangleGeometry>(
        [&](auto result) { return factory_->CreateRectangleGeometry(&shape, result); });
}

owned<ID2D1EllipseGeometry> geometry_test::ellipse(float x, float y, float radius_x, float radius_y) const {
    const D2D1_ELLIPSE shape{{x, y}, radius_x, radius_y};
    return make<ID2D1EllipseGeometry>(
        [&](auto result) { return factory_->CreateEllipseGeometry(&shape, result); });
}

owned<ID2D1RoundedRectangleGeometry> geometry_test::rounded(const D2D1_RECT_F& shape, float radius_x,
                                                            float radius_y) const {
    const D2D1_ROUNDED_RECT corners{shape, radius_x, radius_y};
    return make<ID2D1RoundedRectangleGeometry>(
        [&](auto result) { return factory_->CreateRoundedRectangleGeometry(&corners, result); });
}

owned<ID2D1TransformedGeometry> geometry_test::transformed(ID2D1Geometry* source,
                                                           const D2D1_MATRIX_3X2_F& matrix) const {
    return make<ID2D1TransformedGeometry>(
        [&](auto result) { return factory_->CreateTransformedGeometry(source, &matrix, result); });
}

owned<ID2D1GeometryGroup> geometry_test::group(D2D1_FILL_MODE mode,
                                               std::vector<ID2D1Geometry*> members) const {
    return make<ID2D1GeometryGroup>([&](auto result) {
        return factory_->CreateGeometryGroup(mode, members.data(), static_cast<UINT>(members.size()), result);
    });
}

owned<ID2D1PathGeometry> geometry_test::lines(const std::vector<D2D1_POINT_2F>& points, D2D1_FIGURE_END end,
                                              D2D1_FIGURE_BEGIN begin) const {
    return path([&](ID2D1GeometrySink* sink) {
        sink->BeginFigure(points.front(), begin);
        sink->AddLines(points.data() + 1, static_cast<UINT>(points.size() - 1));
        sink->EndFigure(end);
    });
}

owned<ID2D1StrokeStyle> geometry_test::style(D2D1_CAP_STYLE cap, D2D1_LINE_JOIN join, float miter_limit,
                                             D2D1_DASH_STYLE dash, float offset,
                                             std::vector<float> dashes) const {
    const D2D1_STROKE_STYLE_PROPERTIES properties{cap, cap, cap, join, miter_limit, dash, offset};
    return make<ID2D1StrokeStyle>([&](auto result) {
        return factory_->CreateStrokeStyle(&properties, dashes.empty() ? nullptr : dashes.data(),
                                           static_cast<UINT>(dashes.size()), result);
    });
}

D2D1_RECT_F bounds_of(ID2D1Geometry* geometry, const D2D1_MATRIX_3X2_F* world) {
    D2D1_RECT_F bounds{};
    EXPECT_EQ(geometry->GetBounds(world, &bounds), S_OK);
    return bounds;
}

D2D1_RECT_F widened_bounds_of(ID2D1Geometry* geometry, float width, ID2D1StrokeStyle* style,
                              const D2D1_MATRIX_3X2_F* world) {
    D2D1_RECT_F bounds{};
    EXPECT_EQ(geometry->GetWidenedBounds(width, style, world, 0.25f, &bounds), S_OK);
    return bounds;
}

bool fill_has(ID2D1Geometry* geometry, D2D1_POINT_2F p, float tolerance, const D2D1_MATRIX_3X2_F* world) {
    BOOL contains = FALSE;
    EXPECT_EQ(geometry->FillContainsPoint(p, world, tolerance, &contains), S_OK);
    return contains != FALSE;
}

bool stroke_has(ID2D1Geometry* geometry, D2D1_POINT_2F p, float width, ID2D1StrokeStyle* style,
                float tolerance, const D2D1_MATRIX_3X2_F* world) {
    BOOL contains = FALSE;
    EXPECT_EQ(geometry->StrokeContainsPoint(p, width, style, world, tolerance, &contains), S_OK);
    return contains != FALSE;
}

void expect_near(const D2D1_RECT_F& actual, const D2D1_RECT_F& expected, float tolerance) {
    EXPECT_NEAR(actual.left, expected.left, tolerance);
    EXPECT_NEAR(actual.top, expected.top, tolerance);
    EXPECT_NEAR(actual.right, expected.right, tolerance);
    EXPECT_NEAR(actual.bottom, expected.bottom, tolerance);
}

}  // namespace completion::test
