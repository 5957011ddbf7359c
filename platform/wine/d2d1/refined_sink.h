#pragma once

#include "owned.h"
#include "plane.h"

#include <atomic>

namespace completion {

/// Stands before a path's sink that keeps cubic curves as single quadratic ones and drops arcs: cuts cubic
/// curves into parts that survive this, and arcs into cubic curves. Everything else passes unchanged.
class refined_sink final : public ID2D1GeometrySink {
public:
    explicit refined_sink(owned<ID2D1GeometrySink> original) noexcept : original_(std::move(original)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    void STDMETHODCALLTYPE SetFillMode(D2D1_FILL_MODE mode) noexcept override;
    void STDMETHODCALLTYPE SetSegmentFlags(D2D1_PATH_SEGMENT flags) noexcept override;
    void STDMETHODCALLTYPE BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN begin) noexcept override;
    void STDMETHODCALLTYPE AddLines(const D2D1_POINT_2F* points, UINT count) noexcept override;
    void STDMETHODCALLTYPE AddBeziers(const D2D1_BEZIER_SEGMENT* curves, UINT count) noexcept override;
    void STDMETHODCALLTYPE EndFigure(D2D1_FIGURE_END end) noexcept override;
    HRESULT STDMETHODCALLTYPE Close() noexcept override;

    void STDMETHODCALLTYPE AddLine(D2D1_POINT_2F end) noexcept override;
    void STDMETHODCALLTYPE AddBezier(const D2D1_BEZIER_SEGMENT* curve) noexcept override;
    void STDMETHODCALLTYPE AddQuadraticBezier(const D2D1_QUADRATIC_BEZIER_SEGMENT* curve) noexcept override;
    void STDMETHODCALLTYPE AddQuadraticBeziers(const D2D1_QUADRATIC_BEZIER_SEGMENT* curves,
                                               UINT count) noexcept override;
    void STDMETHODCALLTYPE AddArc(const D2D1_ARC_SEGMENT* arc) noexcept override;

private:
    ~refined_sink() = default;

    /// Cuts a curve; when memory runs out, the curve passes whole.
    void add_parts(point p1, point p2, point p3) noexcept;

    owned<ID2D1GeometrySink> original_;
    point current_;
    std::atomic<ULONG> references_{1};
};

}  // namespace completion
