#include "outline_sink.h"

#include "curve.h"

#include <new>

namespace completion {

template <typename Work>
void outline_sink::guarded(Work work) noexcept {
    try {
        work();
    } catch (const std::bad_alloc&) {
        failed_ = true;
    }
}

HRESULT outline_sink::QueryInterface(REFIID id, void** object) noexcept {
    if (id == __uuidof(IUnknown) || id == __uuidof(ID2D1SimplifiedGeometrySink)) {
        *object = this;
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

void outline_sink::BeginFigure(D2D1_POINT_2F start, D2D1_FIGURE_BEGIN begin) noexcept {
    guarded([&] {
        collected_.figures.push_back({{from(start)}, {false}, begin == D2D1_FIGURE_BEGIN_FILLED, false});
    });
}

void outline_sink::AddLines(const D2D1_POINT_2F* points, UINT count) noexcept {
    guarded([&] {
        figure& last = collected_.figures.back();
        for (UINT i = 0; i < count; ++i) {
            last.points.push_back(from(points[i]));
        }
        last.smooth.resize(last.points.size(), false);
    });
}

void outline_sink::AddBeziers(const D2D1_BEZIER_SEGMENT* curves, UINT count) noexcept {
    guarded([&] {
        figure& last = collected_.figures.back();
        auto& points = last.points;
        for (UINT i = 0; i < count; ++i) {
            const cubic curve{points.back(), from(curves[i].point1), from(curves[i].point2),
                              from(curves[i].point3)};
            flatten(curve, tolerance_, points);
            last.smooth.resize(points.size(), true);
            last.smooth.back() = false;
        }
    });
}

void outline_sink::EndFigure(D2D1_FIGURE_END end) noexcept {
    // A path that is still open ends a figure that it didn't begin.
    if (collected_.figures.empty()) {
        return;
    }
    figure& last = collected_.figures.back();
    last.closed = end == D2D1_FIGURE_END_CLOSED;
    if (last.closed && last.points.size() > 1 && last.points.front() == last.points.back()) {
        last.points.pop_back();
        last.smooth.pop_back();
    }
}

}  // namespace completion
