#include "refined_sink.h"

#include "curve.h"

#include <new>

namespace completion {

namespace {

/// In the geometry's own units; not finer, as the time to close a path grows with the square of its segments.
constexpr double refinement = 1.0 / 64;

D2D1_BEZIER_SEGMENT segment_of(const cubic& curve) noexcept {
    return {to_d2d(curve.p1), to_d2d(curve.p2), to_d2d(curve.p3)};
}

}  // namespace

HRESULT refined_sink::QueryInterface(REFIID id, void** object) noexcept {
    if (id == __uuidof(IUnknown) || id == __uuidof(ID2D1SimplifiedGeometrySink) ||
        id == __uuidof(ID2D1GeometrySink)) {
        *object = this;
        AddRef();
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

ULONG refined_sink::AddRef() noexcept {
    return ++references_;
}

ULONG refined_sink::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

void refined_sink::SetFillMode(D2D1_FILL_MODE mode) noexcept {
    original_->SetFillMode(mode);
}

void refined_sink::SetSegmentFlags(D2D1_PATH_SEGMENT flags) noexcept {
    original_->SetSegmentFlags(flags);
}

void refined_sink::BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN begin) noexcept {
    original_->BeginFigure(start, begin);
    current_ = from(start);
}

void refined_sink::AddLines(const D2D1_POINT_2F* points, UINT count) noexcept {
    original_->AddLines(points, count);
    if (count > 0) {
        current_ = from(points[count - 1]);
    }
}

void refined_sink::AddBeziers(const D2D1_BEZIER_SEGMENT* curves, UINT count) noexcept {
    for (UINT i = 0; i < count; ++i) {
        AddBezier(&curves[i]);
    }
}

void refined_sink::EndFigure(D2D1_FIGURE_END end) noexcept {
    original_->EndFigure(end);
}

HRESULT refined_sink::Close() noexcept {
    return original_->Close();
}

void refined_sink::AddLine(D2D1_POINT_2F end) noexcept {
    AddLines(&end, 1);
}

void refined_sink::AddBezier(const D2D1_BEZIER_SEGMENT* curve) noexcept {
    add_parts(from(curve->point1), from(curve->point2), from(curve->point3));
}

void refined_sink::AddQuadraticBezier(const D2D1_QUADRATIC_BEZIER_SEGMENT* curve) noexcept {
    AddQuadraticBeziers(curve, 1);
}

void refined_sink::AddQuadraticBeziers(const D2D1_QUADRATIC_BEZIER_SEGMENT* curves, UINT count) noexcept {
    original_->AddQuadraticBeziers(curves, count);
    if (count > 0) {
        current_ = from(curves[count - 1].point2);
    }
}

void refined_sink::AddArc(const D2D1_ARC_SEGMENT* arc) noexcept {
    try {
        const std::vector<cubic> curves = arc_curves(current_, *arc);
        for (const cubic& each : curves) {
            add_parts(each.p1, each.p2, each.p3);
        }
        if (curves.empty()) {
            AddLine(arc->point);
        }
    } catch (const std::bad_alloc&) {
        AddLine(arc->point);
    }
}

void refined_sink::add_parts(point p1, point p2, point p3) noexcept {
    const cubic whole{current_, p1, p2, p3};
    try {
        std::vector<D2D1_BEZIER_SEGMENT> segments;
        for (const cubic& part : nearly_quadratic_parts(whole, refinement)) {
            segments.push_back(segment_of(part));
        }
        original_->AddBeziers(segments.data(), static_cast<UINT>(segments.size()));
    } catch (const std::bad_alloc&) {
        const D2D1_BEZIER_SEGMENT segment = segment_of(whole);
        original_->AddBeziers(&segment, 1);
    }
    current_ = p3;
}

}  // namespace completion
