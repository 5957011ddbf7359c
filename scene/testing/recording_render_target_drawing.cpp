// The operations of the recording target that draw, and those that change its state.

#include "scene/testing/call_text.h"
#include "scene/testing/recording_render_target.h"

namespace d2d::scene::fakes {
namespace {

std::string numbers(const D2D1_ROUNDED_RECT& rect) {
    return call_text(rect.rect, rect.radiusX, rect.radiusY);
}
std::string numbers(const D2D1_ELLIPSE& ellipse) {
    return call_text(ellipse.point, ellipse.radiusX, ellipse.radiusY);
}

}  // namespace

template <class... Words>
void recording_render_target::write(const Words&... words) {
    record->calls.push_back(call_text(words...));
}

void recording_render_target::DrawLine(D2D1_POINT_2F from, D2D1_POINT_2F to, ID2D1Brush* brush, FLOAT width,
                                       ID2D1StrokeStyle* style) {
    write("DrawLine", from, to, text_of(brush), width, text_of(style, "style"));
    if (real) real->DrawLine(from, to, brush, width, style);
}

void recording_render_target::DrawRectangle(const D2D1_RECT_F* rect, ID2D1Brush* brush, FLOAT width,
                                            ID2D1StrokeStyle* style) {
    write("DrawRectangle", rect, text_of(brush), width, text_of(style, "style"));
    if (real) real->DrawRectangle(rect, brush, width, style);
}

void recording_render_target::FillRectangle(const D2D1_RECT_F* rect, ID2D1Brush* brush) {
    write("FillRectangle", rect, text_of(brush));
    if (real) real->FillRectangle(rect, brush);
}

void recording_render_target::DrawRoundedRectangle(const D2D1_ROUNDED_RECT* rect, ID2D1Brush* brush,
                                                   FLOAT width, ID2D1StrokeStyle* style) {
    write("DrawRoundedRectangle", numbers(*rect), text_of(brush), width, text_of(style, "style"));
    if (real) real->DrawRoundedRectangle(rect, brush, width, style);
}

void recording_render_target::FillRoundedRectangle(const D2D1_ROUNDED_RECT* rect, ID2D1Brush* brush) {
    write("FillRoundedRectangle", numbers(*rect), text_of(brush));
    if (real) real->FillRoundedRectangle(rect, brush);
}

void recording_render_target::DrawEllipse(const D2D1_ELLIPSE* ellipse, ID2D1Brush* brush, FLOAT width,
                                          ID2D1StrokeStyle* style) {
    write("DrawEllipse", numbers(*ellipse), text_of(brush), width, text_of(style, "style"));
    if (real) real->DrawEllipse(ellipse, brush, width, style);
}

void recording_render_target::FillEllipse(const D2D1_ELLIPSE* ellipse, ID2D1Brush* brush) {
    write("FillEllipse", numbers(*ellipse), text_of(brush));
    if (real) real->FillEllipse(ellipse, brush);
}

void recording_render_target::DrawGeometry(ID2D1Geometry* geometry, ID2D1Brush* brush, FLOAT width,
                                           ID2D1StrokeStyle* style) {
    write("DrawGeometry", text_of(geometry), text_of(brush), width, text_of(style, "style"));
    if (real) real->DrawGeometry(geometry, brush, width, style);
}

void recording_render_target::FillGeometry(ID2D1Geometry* geometry, ID2D1Brush* brush,
                                           ID2D1Brush* opacity_brush) {
    if (opacity_brush) {
        write("FillGeometry", text_of(geometry), text_of(brush), text_of(opacity_brush));
    } else {
        write("FillGeometry", text_of(geometry), text_of(brush));
    }
    if (real) real->FillGeometry(geometry, brush, opacity_brush);
}

void recording_render_target::FillMesh(ID2D1Mesh* mesh, ID2D1Brush* brush) {
    write("FillMesh", text_of(mesh, "mesh"), text_of(brush));
    if (real) real->FillMesh(mesh, brush);
}

void recording_render_target::FillOpacityMask(ID2D1Bitmap* mask, ID2D1Brush* brush,
                                              D2D1_OPACITY_MASK_CONTENT content,
                                              const D2D1_RECT_F* destination, const D2D1_RECT_F* source) {
    write("FillOpacityMask", text_of(mask), text_of(brush), content, destination, source);
    if (real) real->FillOpacityMask(mask, brush, content, destination, source);
}

void recording_render_target::DrawBitmap(ID2D1Bitmap* bitmap, const D2D1_RECT_F* destination, FLOAT opacity,
                                         D2D1_BITMAP_INTERPOLATION_MODE mode, const D2D1_RECT_F* source) {
    write("DrawBitmap", text_of(bitmap), destination, opacity, mode, source);
    if (real) real->DrawBitmap(bitmap, destination, opacity, mode, source);
}

void recording_render_target::DrawText(const WCHAR* text, UINT length, IDWriteTextFormat* format,
                                       const D2D1_RECT_F* box, ID2D1Brush* brush,
                                       D2D1_DRAW_TEXT_OPTIONS options, DWRITE_MEASURING_MODE mode) {
    write("DrawText", length, text_of(format, "format"), box, text_of(brush), options, mode);
    if (real) real->DrawText(text, length, format, box, brush, options, mode);
}

void recording_render_target::DrawTextLayout(D2D1_POINT_2F origin, IDWriteTextLayout* layout,
                                             ID2D1Brush* brush, D2D1_DRAW_TEXT_OPTIONS options) {
    write("DrawTextLayout", origin, text_of(layout, "layout"), text_of(brush), options);
    if (real) real->DrawTextLayout(origin, layout, brush, options);
}

void recording_render_target::DrawGlyphRun(D2D1_POINT_2F origin, const DWRITE_GLYPH_RUN* run,
                                           ID2D1Brush* brush, DWRITE_MEASURING_MODE mode) {
    write("DrawGlyphRun", origin, run->glyphCount, text_of(brush), mode);
    if (real) real->DrawGlyphRun(origin, run, brush, mode);
}

void recording_render_target::SetTransform(const D2D1_MATRIX_3X2_F* changed) {
    write("SetTransform", changed);
    transform = *changed;
    if (real) real->SetTransform(changed);
}

void recording_render_target::GetTransform(D2D1_MATRIX_3X2_F* present) const {
    *present = transform;
}

void recording_render_target::SetAntialiasMode(D2D1_ANTIALIAS_MODE mode) {
    write("SetAntialiasMode", mode);
    if (real) real->SetAntialiasMode(mode);
}

D2D1_ANTIALIAS_MODE recording_render_target::GetAntialiasMode() const {
    return real ? real->GetAntialiasMode() : D2D1_ANTIALIAS_MODE_PER_PRIMITIVE;
}

void recording_render_target::SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE mode) {
    write("SetTextAntialiasMode", mode);
    if (real) real->SetTextAntialiasMode(mode);
}

D2D1_TEXT_ANTIALIAS_MODE recording_render_target::GetTextAntialiasMode() const {
    return real ? real->GetTextAntialiasMode() : D2D1_TEXT_ANTIALIAS_MODE_DEFAULT;
}

void recording_render_target::SetTextRenderingParams(IDWriteRenderingParams* parameters) {
    write("SetTextRenderingParams", text_of(parameters, "parameters"));
    if (real) real->SetTextRenderingParams(parameters);
}

void recording_render_target::GetTextRenderingParams(IDWriteRenderingParams** parameters) const {
    *parameters = nullptr;
    if (real) real->GetTextRenderingParams(parameters);
}

void recording_render_target::SetTags(D2D1_TAG first, D2D1_TAG second) {
    write("SetTags", first, second);
    if (real) real->SetTags(first, second);
}

void recording_render_target::GetTags(D2D1_TAG* first, D2D1_TAG* second) const {
    if (first) *first = 0;
    if (second) *second = 0;
    if (real) real->GetTags(first, second);
}

void recording_render_target::PushLayer(const D2D1_LAYER_PARAMETERS* parameters, ID2D1Layer* layer) {
    write("PushLayer", parameters->contentBounds, parameters->opacity);
    if (real) real->PushLayer(parameters, layer);
}

void recording_render_target::PopLayer() {
    write("PopLayer");
    if (real) real->PopLayer();
}

HRESULT recording_render_target::Flush(D2D1_TAG* first, D2D1_TAG* second) {
    write("Flush");
    return real ? real->Flush(first, second) : S_OK;
}

void recording_render_target::SaveDrawingState(ID2D1DrawingStateBlock* block) const {
    if (real) real->SaveDrawingState(block);
}

void recording_render_target::RestoreDrawingState(ID2D1DrawingStateBlock* block) {
    if (real) real->RestoreDrawingState(block);
}

void recording_render_target::PushAxisAlignedClip(const D2D1_RECT_F* rect, D2D1_ANTIALIAS_MODE mode) {
    write("PushAxisAlignedClip", rect, mode);
    if (real) real->PushAxisAlignedClip(rect, mode);
}

void recording_render_target::PopAxisAlignedClip() {
    write("PopAxisAlignedClip");
    if (real) real->PopAxisAlignedClip();
}

void recording_render_target::Clear(const D2D1_COLOR_F* color) {
    write("Clear", color);
    if (real) real->Clear(color);
}

void recording_render_target::BeginDraw() {
    write("BeginDraw");
    if (real) real->BeginDraw();
}

HRESULT recording_render_target::EndDraw(D2D1_TAG* first, D2D1_TAG* second) {
    write("EndDraw");
    const HRESULT result = real ? real->EndDraw(first, second) : S_OK;
    return result < 0 ? result : end_draw_result;
}

}  // namespace d2d::scene::fakes
