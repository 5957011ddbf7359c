#pragma once

#include "scene/testing/aggregate_result.h"

#include <d2d1.h>
#include <dwrite.h>

namespace d2d::scene::fakes {

/// A render target of interface `Interface` that sends each call on to another target. `QueryInterface` and
/// what `Interface` has beyond `ID2D1RenderTarget` is a derived class's.
template <class Interface>
class forwarding_target : public Interface {
public:
    void STDMETHODCALLTYPE GetFactory(ID2D1Factory** factory) const override { to.GetFactory(factory); }
    HRESULT STDMETHODCALLTYPE CreateBitmap(D2D1_SIZE_U a, const void* b, UINT32 c,
                                           const D2D1_BITMAP_PROPERTIES* d, ID2D1Bitmap** e) override {
        return to.CreateBitmap(a, b, c, d, e);
    }
    HRESULT STDMETHODCALLTYPE CreateBitmapFromWicBitmap(IWICBitmapSource* a, const D2D1_BITMAP_PROPERTIES* b,
                                                        ID2D1Bitmap** c) override {
        return to.CreateBitmapFromWicBitmap(a, b, c);
    }
    HRESULT STDMETHODCALLTYPE CreateSharedBitmap(const IID& a, void* b, const D2D1_BITMAP_PROPERTIES* c,
                                                 ID2D1Bitmap** d) override {
        return to.CreateSharedBitmap(a, b, c, d);
    }
    HRESULT STDMETHODCALLTYPE CreateBitmapBrush(ID2D1Bitmap* a, const D2D1_BITMAP_BRUSH_PROPERTIES* b,
                                                const D2D1_BRUSH_PROPERTIES* c,
                                                ID2D1BitmapBrush** d) override {
        return to.CreateBitmapBrush(a, b, c, d);
    }
    HRESULT STDMETHODCALLTYPE CreateSolidColorBrush(const D2D1_COLOR_F* a, const D2D1_BRUSH_PROPERTIES* b,
                                                    ID2D1SolidColorBrush** c) override {
        return to.CreateSolidColorBrush(a, b, c);
    }
    HRESULT STDMETHODCALLTYPE CreateGradientStopCollection(const D2D1_GRADIENT_STOP* a, UINT b, D2D1_GAMMA c,
                                                           D2D1_EXTEND_MODE d,
                                                           ID2D1GradientStopCollection** e) override {
        return to.CreateGradientStopCollection(a, b, c, d, e);
    }
    HRESULT STDMETHODCALLTYPE CreateLinearGradientBrush(const D2D1_LINEAR_GRADIENT_BRUSH_PROPERTIES* a,
                                                        const D2D1_BRUSH_PROPERTIES* b,
                                                        ID2D1GradientStopCollection* c,
                                                        ID2D1LinearGradientBrush** d) override {
        return to.CreateLinearGradientBrush(a, b, c, d);
    }
    HRESULT STDMETHODCALLTYPE CreateRadialGradientBrush(const D2D1_RADIAL_GRADIENT_BRUSH_PROPERTIES* a,
                                                        const D2D1_BRUSH_PROPERTIES* b,
                                                        ID2D1GradientStopCollection* c,
                                                        ID2D1RadialGradientBrush** d) override {
        return to.CreateRadialGradientBrush(a, b, c, d);
    }
    HRESULT STDMETHODCALLTYPE CreateCompatibleRenderTarget(const D2D1_SIZE_F* a, const D2D1_SIZE_U* b,
                                                           const D2D1_PIXEL_FORMAT* c,
                                                           D2D1_COMPATIBLE_RENDER_TARGET_OPTIONS d,
                                                           ID2D1BitmapRenderTarget** e) override {
        return to.CreateCompatibleRenderTarget(a, b, c, d, e);
    }
    HRESULT STDMETHODCALLTYPE CreateLayer(const D2D1_SIZE_F* a, ID2D1Layer** b) override {
        return to.CreateLayer(a, b);
    }
    HRESULT STDMETHODCALLTYPE CreateMesh(ID2D1Mesh** a) override { return to.CreateMesh(a); }
    void STDMETHODCALLTYPE DrawLine(D2D1_POINT_2F a, D2D1_POINT_2F b, ID2D1Brush* c, FLOAT d,
                                    ID2D1StrokeStyle* e) override {
        to.DrawLine(a, b, c, d, e);
    }
    void STDMETHODCALLTYPE DrawRectangle(const D2D1_RECT_F* a, ID2D1Brush* b, FLOAT c,
                                         ID2D1StrokeStyle* d) override {
        to.DrawRectangle(a, b, c, d);
    }
    void STDMETHODCALLTYPE FillRectangle(const D2D1_RECT_F* a, ID2D1Brush* b) override {
        to.FillRectangle(a, b);
    }
    void STDMETHODCALLTYPE DrawRoundedRectangle(const D2D1_ROUNDED_RECT* a, ID2D1Brush* b, FLOAT c,
                                                ID2D1StrokeStyle* d) override {
        to.DrawRoundedRectangle(a, b, c, d);
    }
    void STDMETHODCALLTYPE FillRoundedRectangle(const D2D1_ROUNDED_RECT* a, ID2D1Brush* b) override {
        to.FillRoundedRectangle(a, b);
    }
    void STDMETHODCALLTYPE DrawEllipse(const D2D1_ELLIPSE* a, ID2D1Brush* b, FLOAT c,
                                       ID2D1StrokeStyle* d) override {
        to.DrawEllipse(a, b, c, d);
    }
    void STDMETHODCALLTYPE FillEllipse(const D2D1_ELLIPSE* a, ID2D1Brush* b) override {
        to.FillEllipse(a, b);
    }
    void STDMETHODCALLTYPE DrawGeometry(ID2D1Geometry* a, ID2D1Brush* b, FLOAT c,
                                        ID2D1StrokeStyle* d) override {
        to.DrawGeometry(a, b, c, d);
    }
    void STDMETHODCALLTYPE FillGeometry(ID2D1Geometry* a, ID2D1Brush* b, ID2D1Brush* c) override {
        to.FillGeometry(a, b, c);
    }
    void STDMETHODCALLTYPE FillMesh(ID2D1Mesh* a, ID2D1Brush* b) override { to.FillMesh(a, b); }
    void STDMETHODCALLTYPE FillOpacityMask(ID2D1Bitmap* a, ID2D1Brush* b, D2D1_OPACITY_MASK_CONTENT c,
                                           const D2D1_RECT_F* d, const D2D1_RECT_F* e) override {
        to.FillOpacityMask(a, b, c, d, e);
    }
    void STDMETHODCALLTYPE DrawBitmap(ID2D1Bitmap* a, const D2D1_RECT_F* b, FLOAT c,
                                      D2D1_BITMAP_INTERPOLATION_MODE d, const D2D1_RECT_F* e) override {
        to.DrawBitmap(a, b, c, d, e);
    }
    void STDMETHODCALLTYPE DrawText(const WCHAR* a, UINT b, IDWriteTextFormat* c, const D2D1_RECT_F* d,
                                    ID2D1Brush* e, D2D1_DRAW_TEXT_OPTIONS f,
                                    DWRITE_MEASURING_MODE g) override {
        to.DrawText(a, b, c, d, e, f, g);
    }
    void STDMETHODCALLTYPE DrawTextLayout(D2D1_POINT_2F a, IDWriteTextLayout* b, ID2D1Brush* c,
                                          D2D1_DRAW_TEXT_OPTIONS d) override {
        to.DrawTextLayout(a, b, c, d);
    }
    void STDMETHODCALLTYPE DrawGlyphRun(D2D1_POINT_2F a, const DWRITE_GLYPH_RUN* b, ID2D1Brush* c,
                                        DWRITE_MEASURING_MODE d) override {
        to.DrawGlyphRun(a, b, c, d);
    }
    void STDMETHODCALLTYPE SetTransform(const D2D1_MATRIX_3X2_F* a) override { to.SetTransform(a); }
    void STDMETHODCALLTYPE GetTransform(D2D1_MATRIX_3X2_F* a) const override { to.GetTransform(a); }
    void STDMETHODCALLTYPE SetAntialiasMode(D2D1_ANTIALIAS_MODE a) override { to.SetAntialiasMode(a); }
    D2D1_ANTIALIAS_MODE STDMETHODCALLTYPE GetAntialiasMode() const override { return to.GetAntialiasMode(); }
    void STDMETHODCALLTYPE SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE a) override {
        to.SetTextAntialiasMode(a);
    }
    D2D1_TEXT_ANTIALIAS_MODE STDMETHODCALLTYPE GetTextAntialiasMode() const override {
        return to.GetTextAntialiasMode();
    }
    void STDMETHODCALLTYPE SetTextRenderingParams(IDWriteRenderingParams* a) override {
        to.SetTextRenderingParams(a);
    }
    void STDMETHODCALLTYPE GetTextRenderingParams(IDWriteRenderingParams** a) const override {
        to.GetTextRenderingParams(a);
    }
    void STDMETHODCALLTYPE SetTags(D2D1_TAG a, D2D1_TAG b) override { to.SetTags(a, b); }
    void STDMETHODCALLTYPE GetTags(D2D1_TAG* a, D2D1_TAG* b) const override { to.GetTags(a, b); }
    void STDMETHODCALLTYPE PushLayer(const D2D1_LAYER_PARAMETERS* a, ID2D1Layer* b) override {
        to.PushLayer(a, b);
    }
    void STDMETHODCALLTYPE PopLayer() override { to.PopLayer(); }
    HRESULT STDMETHODCALLTYPE Flush(D2D1_TAG* a, D2D1_TAG* b) override { return to.Flush(a, b); }
    void STDMETHODCALLTYPE SaveDrawingState(ID2D1DrawingStateBlock* a) const override {
        to.SaveDrawingState(a);
    }
    void STDMETHODCALLTYPE RestoreDrawingState(ID2D1DrawingStateBlock* a) override {
        to.RestoreDrawingState(a);
    }
    void STDMETHODCALLTYPE PushAxisAlignedClip(const D2D1_RECT_F* a, D2D1_ANTIALIAS_MODE b) override {
        to.PushAxisAlignedClip(a, b);
    }
    void STDMETHODCALLTYPE PopAxisAlignedClip() override { to.PopAxisAlignedClip(); }
    void STDMETHODCALLTYPE Clear(const D2D1_COLOR_F* a) override { to.Clear(a); }
    void STDMETHODCALLTYPE BeginDraw() override { to.BeginDraw(); }
    HRESULT STDMETHODCALLTYPE EndDraw(D2D1_TAG* a, D2D1_TAG* b) override { return to.EndDraw(a, b); }
    void STDMETHODCALLTYPE SetDpi(FLOAT a, FLOAT b) override { to.SetDpi(a, b); }
    void STDMETHODCALLTYPE GetDpi(FLOAT* a, FLOAT* b) const override { to.GetDpi(a, b); }
    UINT32 STDMETHODCALLTYPE GetMaximumBitmapSize() const override { return to.GetMaximumBitmapSize(); }
    BOOL STDMETHODCALLTYPE IsSupported(const D2D1_RENDER_TARGET_PROPERTIES* a) const override {
        return to.IsSupported(a);
    }
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_PIXEL_FORMAT, GetPixelFormat, as_target().GetPixelFormat())
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_SIZE_F, GetSize, as_target().GetSize())
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_SIZE_U, GetPixelSize, as_target().GetPixelSize())

protected:
    explicit forwarding_target(ID2D1RenderTarget& forward_to) : to(forward_to) {}
    ~forwarding_target() = default;

private:
    [[nodiscard]] const ID2D1RenderTarget& as_target() const { return to; }

    ID2D1RenderTarget& to;
};

}  // namespace d2d::scene::fakes
