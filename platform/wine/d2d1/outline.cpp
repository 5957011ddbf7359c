#include "outline.h"

#include "outline_sink.h"

#include <new>

namespace completion {

outline outline_of(ID2D1Geometry* geometry, const affine& world, double tolerance, HRESULT& result) {
    outline_sink sink(tolerance);
    const D2D1_MATRIX_3X2_F matrix = world.matrix();
    result = geometry->Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES, &matrix,
                                static_cast<float>(tolerance), &sink);
    if (FAILED(result)) {
        return {};
    }
    if (sink.failed()) {
        throw std::bad_alloc();
    }
    return sink.take();
}

void write(const outline& shape, ID2D1SimplifiedGeometrySink* sink) {
    sink->SetFillMode(shape.fill_mode);
    std::vector<D2D1_POINT_2F> points;
    for (const figure& each : shape.figures) {
        points.clear();
        for (const point p : each.points) {
            points.push_back(to_d2d(p));
        }
        sink->BeginFigure(points.front(), each.filled ? D2D1_FIGURE_BEGIN_FILLED : D2D1_FIGURE_BEGIN_HOLLOW);
        if (points.size() > 1) {
            sink->AddLines(points.data() + 1, static_cast<UINT>(points.size() - 1));
        }
        sink->EndFigure(each.closed ? D2D1_FIGURE_END_CLOSED : D2D1_FIGURE_END_OPEN);
    }
}

double distance_to_segment(point p, point a, point b) noexcept {
    const point along = b - a;
    const double squared = dot(along, along);
    const double t = squared > 0 ? std::clamp(dot(p - a, along) / squared, 0.0, 1.0) : 0;
    return length(p - (a + along * t));
}

int winding_number(const outline& shape, point p) noexcept {
    int winding = 0;
    for (const figure& each : shape.figures) {
        if (!each.filled) {
            continue;
        }
        point a = each.points.back();
        for (const point b : each.points) {
            if ((a.y <= p.y) != (b.y <= p.y)) {
                const bool down = b.y > a.y;
                if ((cross(b - a, p - a) > 0) == down) {
                    winding += down ? 1 : -1;
                }
            }
            a = b;
        }
    }
    return winding;
}

bool fill_contains(const outline& shape, point p, double tolerance) {
    const int winding = winding_number(shape, p);
    if (shape.fill_mode == D2D1_FILL_MODE_WINDING ? winding != 0 : winding % 2 != 0) {
        return true;
    }
    for (const figure& each : shape.figures) {
        if (!each.filled) {
            continue;
        }
        point a = each.points.back();
        for (const point b : each.points) {
            if (distance_to_segment(p, a, b) < tolerance) {
                return true;
            }
            a = b;
        }
    }
    return false;
}

}  // namespace completion
