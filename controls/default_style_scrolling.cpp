#include "com/check.h"
#include "controls/default_style_looks.h"
#include "d2d/factory.h"

#include <algorithm>

namespace d2d {
namespace {

/// What a margin and its separator take off a side.
float taken(float margin) noexcept {
    return margin > 0 ? margin + 1 : 0;
}

void add_line(ID2D1GeometrySink& sink, D2D_POINT_2F from, D2D_POINT_2F to) {
    sink.BeginFigure(from, D2D1_FIGURE_BEGIN_HOLLOW);
    sink.AddLine(to);
    sink.EndFigure(D2D1_FIGURE_END_OPEN);
}

/// Null when no line has a length: a recording takes no stroke without bounds.
com::ptr<ID2D1PathGeometry> separators(const D2D_RECT_F& rect, const D2D_RECT_F& margins) {
    auto lines = factory::create_path_geometry();
    com::ptr<ID2D1GeometrySink> sink;
    com::check(lines->Open(sink.put()));
    bool empty = true;
    const auto vertical = [&](float x) {
        add_line(*sink, {x, rect.top}, {x, rect.bottom});
        empty = empty && rect.top == rect.bottom;
    };
    const auto horizontal = [&](float y) {
        add_line(*sink, {rect.left, y}, {rect.right, y});
        empty = empty && rect.left == rect.right;
    };
    if (margins.left > 0) vertical(rect.left + margins.left + 0.5f);
    if (margins.top > 0) horizontal(rect.top + margins.top + 0.5f);
    if (margins.right > 0) vertical(rect.right - margins.right - 0.5f);
    if (margins.bottom > 0) horizontal(rect.bottom - margins.bottom - 0.5f);
    com::check(sink->Close());
    return empty ? nullptr : lines;
}

}  // namespace

void default_scroll_bar_style::draw_thumb(scene::IDrawingContext* context, D2D_RECT_F rect, bool, bool) {
    const float radius = std::min(rect.right - rect.left, rect.bottom - rect.top) / 3;
    const auto thumb = factory::create_rounded_rect_geometry({rect, radius, radius});
    base().fill(context, thumb.get(), "scroll.thumb.background");
}

void default_scroll_bar_style::draw_track(scene::IDrawingContext* context, D2D_RECT_F rect, bool, bool) {
    base().fill(context, factory::create_rectangle_geometry(rect).get(), "scroll.track.background");
}

D2D_RECT_F default_scroll_area_style::content_rect(D2D_RECT_F rect, D2D_RECT_F margins) {
    return {rect.left + taken(margins.left), rect.top + taken(margins.top), rect.right - taken(margins.right),
            rect.bottom - taken(margins.bottom)};
}

void default_scroll_area_style::draw_separators(scene::IDrawingContext* context, D2D_RECT_F rect,
                                                D2D_RECT_F margins) {
    if (margins.left == 0 && margins.top == 0 && margins.right == 0 && margins.bottom == 0) return;
    if (const auto lines = separators(rect, margins)) {
        base().stroke(context, lines.get(), "scroll.area.outline");
    }
}

}  // namespace d2d
