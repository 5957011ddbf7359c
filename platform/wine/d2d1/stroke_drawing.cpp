#include "stroke_drawing.h"

#include "guarded.h"
#include "owned.h"
#include "plane.h"
#include "scratch_context.h"
#include "stroke_style.h"
#include "table_slot.h"

namespace completion {

namespace {

using brush = ID2D1Brush*;
using pen = ID2D1StrokeStyle*;

template <typename... Shape>
using draw_method = void (STDMETHODCALLTYPE ID2D1RenderTarget::*)(Shape..., brush, FLOAT, pen);

table_slot<draw_method<D2D1_POINT_2F, D2D1_POINT_2F>> line_slot{&ID2D1RenderTarget::DrawLine};
table_slot<draw_method<const D2D1_RECT_F*>> rectangle_slot{&ID2D1RenderTarget::DrawRectangle};
table_slot<draw_method<const D2D1_ROUNDED_RECT*>> rounded_slot{&ID2D1RenderTarget::DrawRoundedRectangle};
table_slot<draw_method<const D2D1_ELLIPSE*>> ellipse_slot{&ID2D1RenderTarget::DrawEllipse};
table_slot<draw_method<ID2D1Geometry*>> geometry_slot{&ID2D1RenderTarget::DrawGeometry};

/// Whether a stroke looks other than one without a style.
bool matters(pen style) {
    if (!style) {
        return false;
    }
    const stroke_style given = read_style(style);
    const stroke_style none;
    return !given.dashes.empty() || given.start_cap != none.start_cap || given.end_cap != none.end_cap ||
           given.join != none.join || given.miter_limit != none.miter_limit;
}

owned<ID2D1PathGeometry> line(ID2D1Factory* factory, D2D1_POINT_2F from, D2D1_POINT_2F to) {
    auto path = make<ID2D1PathGeometry>([&](auto result) { return factory->CreatePathGeometry(result); });
    const auto sink =
        path ? make<ID2D1GeometrySink>([&](auto result) { return path->Open(result); }) : nullptr;
    if (!sink) {
        return nullptr;
    }
    sink->BeginFigure(from, D2D1_FIGURE_BEGIN_HOLLOW);
    sink->AddLine(to);
    sink->EndFigure(D2D1_FIGURE_END_OPEN);
    return SUCCEEDED(sink->Close()) ? std::move(path) : nullptr;
}

/// Draws a dashed line on a context of its own and looks for the gap.
bool original_draws_dashes(ID2D1RenderTarget* any) {
    const scratch_context scratch(query<ID2D1DeviceContext>(any).get());
    ID2D1DeviceContext* const context = scratch.get();
    if (!context) {
        return true;
    }
    const auto factory = make<ID2D1Factory>([&](ID2D1Factory** result) {
        context->GetFactory(result);
        return S_OK;
    });
    D2D1_STROKE_STYLE_PROPERTIES properties{};
    properties.miterLimit = 10;
    properties.dashStyle = D2D1_DASH_STYLE_DASH;
    const auto dashed = make<ID2D1StrokeStyle>([&](ID2D1StrokeStyle** result) {
        return factory->CreateStrokeStyle(&properties, nullptr, 0, result);
    });
    constexpr D2D1_COLOR_F white{1, 1, 1, 1};
    const auto fill = make<ID2D1SolidColorBrush>([&](ID2D1SolidColorBrush** result) {
        return context->CreateSolidColorBrush(&white, nullptr, result);
    });
    // Other shapes may go through the table again, to here.
    const auto shape = line(factory.get(), {0, 8}, {16, 8});
    const auto drawn =
        scratch.draw([&] { geometry_slot.original()(context, shape.get(), fill.get(), 2, dashed.get()); });
    return drawn && drawn->at(2, 8)[3] > 128 && drawn->at(6, 8)[3] < 128;
}

/// Whether the stroke is to be filled here. The first one with a style decides for all.
bool takes_over(ID2D1RenderTarget* target, pen style) noexcept {
    bool own = false;
    static_cast<void>(guarded([&] {
        if (matters(style)) {
            static const bool trusted = original_draws_dashes(target);
            own = !trusted;
        }
        return S_OK;
    }));
    return own;
}

/// Fine enough for the eye at the context's present transform.
float drawing_tolerance(ID2D1RenderTarget* target) {
    D2D1_MATRIX_3X2_F transform{};
    target->GetTransform(&transform);
    const double scale = affine(transform).largest_scale();
    return D2D1_DEFAULT_FLATTENING_TOLERANCE / static_cast<float>(scale > 0 ? scale : 1);
}

/// Makes the shape's geometry with the factory, and fills what its stroke covers.
template <typename Shape>
void fill_stroke(ID2D1RenderTarget* target, brush fill, float width, ID2D1StrokeStyle* style,
                 Shape shape) noexcept {
    // Drawing operations report nothing: what can't be made isn't drawn.
    static_cast<void>(guarded([&] {
        const auto factory = make<ID2D1Factory>([&](ID2D1Factory** result) {
            target->GetFactory(result);
            return S_OK;
        });
        const owned<ID2D1Geometry> geometry = shape(factory.get());
        const auto path = make<ID2D1PathGeometry>(
            [&](ID2D1PathGeometry** result) { return factory->CreatePathGeometry(result); });
        const auto sink =
            path ? make<ID2D1GeometrySink>([&](ID2D1GeometrySink** result) { return path->Open(result); })
                 : nullptr;
        if (!geometry || !sink) {
            return E_FAIL;
        }
        const HRESULT widened = geometry->Widen(width, style, nullptr, drawing_tolerance(target), sink.get());
        const HRESULT closed = sink->Close();
        if (SUCCEEDED(widened) && SUCCEEDED(closed)) {
            target->FillGeometry(path.get(), fill, nullptr);
        }
        return closed;
    }));
}

void STDMETHODCALLTYPE draw_line(ID2D1RenderTarget* self, D2D1_POINT_2F from, D2D1_POINT_2F to, brush fill,
                                 FLOAT width, pen drawn) noexcept {
    if (!takes_over(self, drawn)) {
        line_slot.original()(self, from, to, fill, width, drawn);
        return;
    }
    fill_stroke(self, fill, width, drawn,
                [&](ID2D1Factory* factory) -> owned<ID2D1Geometry> { return line(factory, from, to); });
}

void STDMETHODCALLTYPE draw_rectangle(ID2D1RenderTarget* self, const D2D1_RECT_F* shape, brush fill,
                                      FLOAT width, pen drawn) noexcept {
    if (!takes_over(self, drawn)) {
        rectangle_slot.original()(self, shape, fill, width, drawn);
        return;
    }
    fill_stroke(self, fill, width, drawn, [&](ID2D1Factory* factory) -> owned<ID2D1Geometry> {
        return make<ID2D1RectangleGeometry>(
            [&](auto result) { return factory->CreateRectangleGeometry(shape, result); });
    });
}

void STDMETHODCALLTYPE draw_rounded(ID2D1RenderTarget* self, const D2D1_ROUNDED_RECT* shape, brush fill,
                                    FLOAT width, pen drawn) noexcept {
    if (!takes_over(self, drawn)) {
        rounded_slot.original()(self, shape, fill, width, drawn);
        return;
    }
    fill_stroke(self, fill, width, drawn, [&](ID2D1Factory* factory) -> owned<ID2D1Geometry> {
        return make<ID2D1RoundedRectangleGeometry>(
            [&](auto result) { return factory->CreateRoundedRectangleGeometry(shape, result); });
    });
}

void STDMETHODCALLTYPE draw_ellipse(ID2D1RenderTarget* self, const D2D1_ELLIPSE* shape, brush fill,
                                    FLOAT width, pen drawn) noexcept {
    if (!takes_over(self, drawn)) {
        ellipse_slot.original()(self, shape, fill, width, drawn);
        return;
    }
    fill_stroke(self, fill, width, drawn, [&](ID2D1Factory* factory) -> owned<ID2D1Geometry> {
        return make<ID2D1EllipseGeometry>(
            [&](auto result) { return factory->CreateEllipseGeometry(shape, result); });
    });
}

void STDMETHODCALLTYPE draw_geometry(ID2D1RenderTarget* self, ID2D1Geometry* shape, brush fill, FLOAT width,
                                     pen drawn) noexcept {
    if (!takes_over(self, drawn)) {
        geometry_slot.original()(self, shape, fill, width, drawn);
        return;
    }
    fill_stroke(self, fill, width, drawn, [&](ID2D1Factory*) {
        shape->AddRef();
        return owned<ID2D1Geometry>(shape);
    });
}

}  // namespace

void complete_stroke_drawing(ID2D1DeviceContext* context) {
    line_slot.replace(context, &draw_line);
    rectangle_slot.replace(context, &draw_rectangle);
    rounded_slot.replace(context, &draw_rounded);
    ellipse_slot.replace(context, &draw_ellipse);
    geometry_slot.replace(context, &draw_geometry);
}

}  // namespace completion
