#pragma once

#include "owned.h"

#include <d2d1.h>
#include <d2d1helper.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace completion::test {

/// What a geometry wrote, curves refused: figures of points.
class recording_sink final : public ID2D1SimplifiedGeometrySink {
public:
    ~recording_sink() = default;

    std::vector<std::vector<D2D1_POINT_2F>> figures;
    std::vector<D2D1_FIGURE_END> ends;
    unsigned curves = 0;

    /// The area inside, where outer boundaries and holes turn opposite ways.
    [[nodiscard]] double signed_area() const;
    /// Whether an odd number of boundaries surrounds the point.
    [[nodiscard]] bool contains(D2D1_POINT_2F p) const;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
    void STDMETHODCALLTYPE SetFillMode(D2D1_FILL_MODE) noexcept override {}
    void STDMETHODCALLTYPE SetSegmentFlags(D2D1_PATH_SEGMENT) noexcept override {}
    void STDMETHODCALLTYPE BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN) noexcept override {
        figures.push_back({start});
    }
    void STDMETHODCALLTYPE AddLines(const D2D1_POINT_2F* points, UINT count) noexcept override {
        figures.back().insert(figures.back().end(), points, points + count);
    }
    void STDMETHODCALLTYPE AddBeziers(const D2D1_BEZIER_SEGMENT*, UINT count) noexcept override {
        curves += count;
    }
    void STDMETHODCALLTYPE EndFigure(D2D1_FIGURE_END end) noexcept override { ends.push_back(end); }
    HRESULT STDMETHODCALLTYPE Close() noexcept override { return S_OK; }
};

/// Makes geometries.
class geometry_test : public testing::Test {
protected:
    geometry_test();

    [[nodiscard]] owned<ID2D1RectangleGeometry> rectangle(float left, float top, float right,
                                                          float bottom) const;
    [[nodiscard]] owned<ID2D1EllipseGeometry> ellipse(float x, float y, float radius_x, float radius_y) const;
    [[nodiscard]] owned<ID2D1RoundedRectangleGeometry> rounded(const D2D1_RECT_F& shape, float radius_x,
                                                               float radius_y) const;
    [[nodiscard]] owned<ID2D1TransformedGeometry> transformed(ID2D1Geometry* source,
                                                              const D2D1_MATRIX_3X2_F& matrix) const;
    [[nodiscard]] owned<ID2D1GeometryGroup> group(D2D1_FILL_MODE mode,
                                                  std::vector<ID2D1Geometry*> members) const;
    [[nodiscard]] owned<ID2D1PathGeometry> lines(const std::vector<D2D1_POINT_2F>& points,
                                                 D2D1_FIGURE_END end,
                                                 D2D1_FIGURE_BEGIN begin = D2D1_FIGURE_BEGIN_FILLED) const;
    [[nodiscard]] owned<ID2D1StrokeStyle> style(D2D1_CAP_STYLE cap, D2D1_LINE_JOIN join,
                                                float miter_limit = 10,
                                                D2D1_DASH_STYLE dash = D2D1_DASH_STYLE_SOLID,
                                                float offset = 0, std::vector<float> dashes = {}) const;

    template <typename Fill>
    [[nodiscard]] owned<ID2D1PathGeometry> path(Fill fill) const {
        auto made =
            make<ID2D1PathGeometry>([&](auto result) { return factory_->CreatePathGeometry(result); });
        const auto sink = make<ID2D1GeometrySink>([&](auto result) { return made->Open(result); });
        fill(sink.get());
        EXPECT_EQ(sink->Close(), S_OK);
        return made;
    }

    owned<ID2D1Factory> factory_;
};

[[nodiscard]] D2D1_RECT_F bounds_of(ID2D1Geometry* geometry, const D2D1_MATRIX_3X2_F* world = nullptr);
[[nodiscard]] D2D1_RECT_F widened_bounds_of(ID2D1Geometry* geometry, float width,
                                            ID2D1StrokeStyle* style = nullptr,
                                            const D2D1_MATRIX_3X2_F* world = nullptr);
[[nodiscard]] bool fill_has(ID2D1Geometry* geometry, D2D1_POINT_2F p, float tolerance = 0.01f,
                            const D2D1_MATRIX_3X2_F* world = nullptr);
[[nodiscard]] bool stroke_has(ID2D1Geometry* geometry, D2D1_POINT_2F p, float width,
                              ID2D1StrokeStyle* style = nullptr, float tolerance = 0.01f,
                              const D2D1_MATRIX_3X2_F* world = nullptr);

void expect_near(const D2D1_RECT_F& actual, const D2D1_RECT_F& expected, float tolerance);

}  // namespace completion::test
