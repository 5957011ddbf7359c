#pragma once

#include "host/svg_path_parser.h"

#include <d2d1.h>

namespace d2d {

/// Draws a path into a Direct2D geometry, with the geometry's default fill mode and segment flags.
class svg_geometry_sink {
public:
    explicit svg_geometry_sink(ID2D1GeometrySink& target) noexcept : target_(target) {}

    void begin_figure(svg_point start) { target_.BeginFigure(point(start), D2D1_FIGURE_BEGIN_FILLED); }
    void add_line(svg_point end) { target_.AddLine(point(end)); }
    void add_bezier(svg_point first, svg_point second, svg_point end) {
        const D2D1_BEZIER_SEGMENT segment{point(first), point(second), point(end)};
        target_.AddBezier(&segment);
    }
    void end_figure(svg_figure_end end) {
        target_.EndFigure(end == svg_figure_end::closed ? D2D1_FIGURE_END_CLOSED : D2D1_FIGURE_END_OPEN);
    }
    /// Whether the geometry could be closed is not looked at: kept, a path with coordinates that Direct2D
    /// refuses gives a geometry that draws nothing.
    void close() { static_cast<void>(target_.Close()); }

private:
    static D2D_POINT_2F point(svg_point p) noexcept { return {p.x, p.y}; }

    ID2D1GeometrySink& target_;
};

}  // namespace d2d
