#include "geometry_samples.h"

#include <cmath>

namespace completion {

namespace {

constexpr float sample_width = 40;
constexpr float sample_height = 24;
constexpr float tolerance = 0.25f;

owned<ID2D1PathGeometry> rectangle_path(ID2D1Factory* factory, float width, float height) {
    auto path = make<ID2D1PathGeometry>([&](auto result) { return factory->CreatePathGeometry(result); });
    const auto sink = path ? make<ID2D1GeometrySink>([&](auto result) { return path->Open(result); })
                           : owned<ID2D1GeometrySink>();
    if (!sink) {
        return nullptr;
    }
    sink->BeginFigure({0, 0}, D2D1_FIGURE_BEGIN_FILLED);
    sink->AddLine({width, 0});
    sink->AddLine({width, height});
    sink->AddLine({0, height});
    sink->EndFigure(D2D1_FIGURE_END_CLOSED);
    return SUCCEEDED(sink->Close()) ? std::move(path) : nullptr;
}

template <typename Fill>
D2D1_RECT_F path_bounds(ID2D1Factory* factory, Fill fill) {
    D2D1_RECT_F bounds{};
    const auto path =
        make<ID2D1PathGeometry>([&](auto result) { return factory->CreatePathGeometry(result); });
    const auto sink = path ? make<ID2D1GeometrySink>([&](auto result) { return path->Open(result); })
                           : owned<ID2D1GeometrySink>();
    if (sink) {
        sink->BeginFigure({0, 0}, D2D1_FIGURE_BEGIN_FILLED);
        fill(sink.get());
        sink->EndFigure(D2D1_FIGURE_END_CLOSED);
        sink->Close();
        path->GetBounds(nullptr, &bounds);
    }
    return bounds;
}

}  // namespace

geometry_samples::geometry_samples(ID2D1Factory* factory)
    : path(rectangle_path(factory, sample_width, sample_height)) {
    const D2D1_RECT_F shape{0, 0, sample_width, sample_height};
    rectangle = make<ID2D1RectangleGeometry>(
        [&](auto result) { return factory->CreateRectangleGeometry(&shape, result); });
    const D2D1_ROUNDED_RECT corners{shape, 4, 4};
    rounded = make<ID2D1RoundedRectangleGeometry>(
        [&](auto result) { return factory->CreateRoundedRectangleGeometry(&corners, result); });
    const D2D1_ELLIPSE disc{{0, 0}, sample_width, sample_height};
    ellipse = make<ID2D1EllipseGeometry>(
        [&](auto result) { return factory->CreateEllipseGeometry(&disc, result); });
    ID2D1Geometry* member = path.get();
    group = make<ID2D1GeometryGroup>([&](auto result) {
        return factory->CreateGeometryGroup(D2D1_FILL_MODE_ALTERNATE, &member, 1, result);
    });
    if (const auto half = rectangle_path(factory, sample_width / 2, sample_height / 2)) {
        D2D1_MATRIX_3X2_F twice{};
        twice._11 = 2;
        twice._22 = 2;
        transformed = make<ID2D1TransformedGeometry>(
            [&](auto result) { return factory->CreateTransformedGeometry(half.get(), &twice, result); });
    }
}

bool answers_fill_hits(ID2D1Geometry* sample) {
    const auto contains = [sample](float x, float y) {
        BOOL result = FALSE;
        sample->FillContainsPoint({x, y}, nullptr, tolerance, &result);
        return result != FALSE;
    };
    return contains(0.5f, 0.5f) && contains(-0.2f, 12) && !contains(-0.3f, 12);
}

bool answers_stroke_hits(ID2D1Geometry* sample, ID2D1Factory* factory) {
    D2D1_STROKE_STYLE_PROPERTIES properties{};
    properties.miterLimit = 10;
    properties.dashStyle = D2D1_DASH_STYLE_DASH;
    const auto dashed = make<ID2D1StrokeStyle>(
        [&](auto result) { return factory->CreateStrokeStyle(&properties, nullptr, 0, result); });
    const auto contains = [sample](float x, float y, ID2D1StrokeStyle* style) {
        BOOL result = FALSE;
        sample->StrokeContainsPoint({x, y}, 4, style, nullptr, tolerance, &result);
        return result != FALSE;
    };
    return contains(-1.5f, -1.5f, nullptr) && contains(20, -2.2f, nullptr) && !contains(20, -2.3f, nullptr) &&
           contains(4, 0, dashed.get()) && !contains(12, 0, dashed.get());
}

bool keeps_curves(ID2D1Factory* factory) {
    const D2D1_RECT_F wave = path_bounds(factory, [](ID2D1GeometrySink* sink) {
        const D2D1_BEZIER_SEGMENT curve{{100, 100}, {0, -100}, {100, 0}};
        sink->AddBezier(&curve);
    });
    const D2D1_RECT_F half_circle = path_bounds(factory, [](ID2D1GeometrySink* sink) {
        const D2D1_ARC_SEGMENT arc{{40, 0}, {20, 20}, 0, D2D1_SWEEP_DIRECTION_CLOCKWISE, D2D1_ARC_SIZE_SMALL};
        sink->AddArc(&arc);
    });
    return std::abs(wave.bottom - 28.87f) < 0.1f && std::abs(half_circle.top + 20) < 0.1f;
}

}  // namespace completion
