#pragma once

#include "outline.h"

#include <utility>

namespace completion {

/// Collects what a geometry writes, on the stack of the one who asks: counts no references.
class outline_sink final : public ID2D1SimplifiedGeometrySink {
public:
    explicit outline_sink(double tolerance) noexcept : tolerance_(tolerance) {}
    ~outline_sink() = default;

    [[nodiscard]] outline take() noexcept { return std::move(collected_); }
    /// Whether memory ran out on the way.
    [[nodiscard]] bool failed() const noexcept { return failed_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }

    void STDMETHODCALLTYPE SetFillMode(D2D1_FILL_MODE mode) noexcept override { collected_.fill_mode = mode; }
    void STDMETHODCALLTYPE SetSegmentFlags(D2D1_PATH_SEGMENT) noexcept override {}
    void STDMETHODCALLTYPE BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN begin) noexcept override;
    void STDMETHODCALLTYPE AddLines(const D2D1_POINT_2F* points, UINT count) noexcept override;
    void STDMETHODCALLTYPE AddBeziers(const D2D1_BEZIER_SEGMENT* curves, UINT count) noexcept override;
    void STDMETHODCALLTYPE EndFigure(D2D1_FIGURE_END end) noexcept override;
    HRESULT STDMETHODCALLTYPE Close() noexcept override { return S_OK; }

private:
    template <typename Work>
    void guarded(Work work) noexcept;

    outline collected_;
    double tolerance_;
    bool failed_ = false;
};

}  // namespace completion
