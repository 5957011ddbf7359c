#pragma once

#include "com/object.h"
#include "scene/testing/aggregate_result.h"

#include <d2d1.h>

namespace bench {

/// A render target that draws nothing, so that a paint of a scene costs the walk alone. It makes its brushes
/// and bitmaps on a real target and takes everything else as done.
class idle_target : public com::base_object<com::object_base, ID2D1RenderTarget> {
public:
    explicit idle_target(com::ptr<ID2D1RenderTarget> resources) : maker(std::move(resources)) {}

    // clang-format off
    STDMETHOD_(void, GetFactory)(ID2D1Factory** factory) const noexcept override { maker->GetFactory(factory); }
    STDMETHOD(CreateBitmap)(D2D1_SIZE_U size, const void* data, UINT32 pitch,
                            const D2D1_BITMAP_PROPERTIES* properties, ID2D1Bitmap** bitmap) override {
        return maker->CreateBitmap(size, data, pitch, properties, bitmap);
    }
    STDMETHOD(CreateBitmapFromWicBitmap)(IWICBitmapSource* source, const D2D1_BITMAP_PROPERTIES* properties,
                                         ID2D1Bitmap** bitmap) override {
        return maker->CreateBitmapFromWicBitmap(source, properties, bitmap);
    }
    STDMETHOD(CreateSharedBitmap)(REFIID, void*, const D2D1_BITMAP_PROPERTIES*, ID2D1Bitmap**) override { return E_NOTIMPL; }
    STDMETHOD(CreateBitmapBrush)(ID2D1Bitmap*, const D2D1_BITMAP_BRUSH_PROPERTIES*, const D2D1_BRUSH_PROPERTIES*, ID2D1BitmapBrush**) override { return E_NOTIMPL; }
    STDMETHOD(CreateSolidColorBrush)(const D2D1_COLOR_F* color, const D2D1_BRUSH_PROPERTIES* properties,
                                     ID2D1SolidColorBrush** brush) override {
        return maker->CreateSolidColorBrush(color, properties, brush);
    }
    STDMETHOD(CreateGradientStopCollection)(const D2D1_GRADIENT_STOP*, UINT, D2D1_GAMMA, D2D1_EXTEND_MODE, ID2D1GradientStopCollection**) override { return E_NOTIMPL; }
    STDMETHOD(CreateLinearGradientBrush)(const D2D1_LINEAR_GRADIENT_BRUSH_PROPERTIES*, const D2D1_BRUSH_PROPERTIES*, ID2D1GradientStopCollection*, ID2D1LinearGradientBrush**) override { return E_NOTIMPL; }
    STDMETHOD(CreateRadialGradientBrush)(const D2D1_RADIAL_GRADIENT_BRUSH_PROPERTIES*, const D2D1_BRUSH_PROPERTIES*, ID2D1GradientStopCollection*, ID2D1RadialGradientBrush**) override { return E_NOTIMPL; }
    STDMETHOD(CreateCompatibleRenderTarget)(const D2D1_SIZE_F*, const D2D1_SIZE_U*, const D2D1_PIXEL_FORMAT*, D2D1_COMPATIBLE_RENDER_TARGET_OPTIONS, ID2D1BitmapRenderTarget**) override { return E_NOTIMPL; }
    STDMETHOD(CreateLayer)(const D2D1_SIZE_F*, ID2D1Layer**) override { return E_NOTIMPL; }
    STDMETHOD(CreateMesh)(ID2D1Mesh**) override { return E_NOTIMPL; }
    STDMETHOD_(void, DrawLine)(D2D1_POINT_2F, D2D1_POINT_2F, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    STDMETHOD_(void, DrawRectangle)(const D2D1_RECT_F*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    STDMETHOD_(void, FillRectangle)(const D2D1_RECT_F*, ID2D1Brush*) override {}
    STDMETHOD_(void, DrawRoundedRectangle)(const D2D1_ROUNDED_RECT*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    STDMETHOD_(void, FillRoundedRectangle)(const D2D1_ROUNDED_RECT*, ID2D1Brush*) override {}
    STDMETHOD_(void, DrawEllipse)(const D2D1_ELLIPSE*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    STDMETHOD_(void, FillEllipse)(const D2D1_ELLIPSE*, ID2D1Brush*) override {}
    STDMETHOD_(void, DrawGeometry)(ID2D1Geometry*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    STDMETHOD_(void, FillGeometry)(ID2D1Geometry*, ID2D1Brush*, ID2D1Brush*) override {}
    STDMETHOD_(void, FillMesh)(ID2D1Mesh*, ID2D1Brush*) override {}
    STDMETHOD_(void, FillOpacityMask)(ID2D1Bitmap*, ID2D1Brush*, D2D1_OPACITY_MASK_CONTENT, const D2D1_RECT_F*, const D2D1_RECT_F*) override {}
    STDMETHOD_(void, DrawBitmap)(ID2D1Bitmap*, const D2D1_RECT_F*, FLOAT, D2D1_BITMAP_INTERPOLATION_MODE, const D2D1_RECT_F*) override {}
    STDMETHOD_(void, DrawText)(const WCHAR*, UINT, IDWriteTextFormat*, const D2D1_RECT_F*, ID2D1Brush*, D2D1_DRAW_TEXT_OPTIONS, DWRITE_MEASURING_MODE) override {}
    STDMETHOD_(void, DrawTextLayout)(D2D1_POINT_2F, IDWriteTextLayout*, ID2D1Brush*, D2D1_DRAW_TEXT_OPTIONS) override {}
    STDMETHOD_(void, DrawGlyphRun)(D2D1_POINT_2F, const DWRITE_GLYPH_RUN*, ID2D1Brush*, DWRITE_MEASURING_MODE) override {}
    STDMETHOD_(void, SetTransform)(const D2D1_MATRIX_3X2_F*) override {}
    STDMETHOD_(void, GetTransform)(D2D1_MATRIX_3X2_F* transform) const override { *transform = {{{1, 0, 0, 1, 0, 0}}}; }
    STDMETHOD_(void, SetAntialiasMode)(D2D1_ANTIALIAS_MODE) override {}
    STDMETHOD_(D2D1_ANTIALIAS_MODE, GetAntialiasMode)() const override { return D2D1_ANTIALIAS_MODE_PER_PRIMITIVE; }
    STDMETHOD_(void, SetTextAntialiasMode)(D2D1_TEXT_ANTIALIAS_MODE) override {}
    STDMETHOD_(D2D1_TEXT_ANTIALIAS_MODE, GetTextAntialiasMode)() const override { return D2D1_TEXT_ANTIALIAS_MODE_DEFAULT; }
    STDMETHOD_(void, SetTextRenderingParams)(IDWriteRenderingParams*) override {}
    STDMETHOD_(void, GetTextRenderingParams)(IDWriteRenderingParams** parameters) const override { *parameters = nullptr; }
    STDMETHOD_(void, SetTags)(D2D1_TAG, D2D1_TAG) override {}
    STDMETHOD_(void, GetTags)(D2D1_TAG*, D2D1_TAG*) const override {}
    STDMETHOD_(void, PushLayer)(const D2D1_LAYER_PARAMETERS*, ID2D1Layer*) override {}
    STDMETHOD_(void, PopLayer)() override {}
    STDMETHOD(Flush)(D2D1_TAG*, D2D1_TAG*) override { return S_OK; }
    STDMETHOD_(void, SaveDrawingState)(ID2D1DrawingStateBlock*) const override {}
    STDMETHOD_(void, RestoreDrawingState)(ID2D1DrawingStateBlock*) override {}
    STDMETHOD_(void, PushAxisAlignedClip)(const D2D1_RECT_F*, D2D1_ANTIALIAS_MODE) override {}
    STDMETHOD_(void, PopAxisAlignedClip)() override {}
    STDMETHOD_(void, Clear)(const D2D1_COLOR_F*) override {}
    STDMETHOD_(void, BeginDraw)() override {}
    STDMETHOD(EndDraw)(D2D1_TAG*, D2D1_TAG*) override { return S_OK; }
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_PIXEL_FORMAT, GetPixelFormat, (D2D1_PIXEL_FORMAT{}))
    STDMETHOD_(void, SetDpi)(FLOAT, FLOAT) override {}
    STDMETHOD_(void, GetDpi)(FLOAT* x, FLOAT* y) const override { *x = *y = 96; }
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_SIZE_F, GetSize, (D2D1_SIZE_F{1000, 1000}))
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_SIZE_U, GetPixelSize, (D2D1_SIZE_U{1000, 1000}))
    STDMETHOD_(UINT32, GetMaximumBitmapSize)() const override { return 16384; }
    STDMETHOD_(BOOL, IsSupported)(const D2D1_RENDER_TARGET_PROPERTIES*) const override { return FALSE; }
    // clang-format on

protected:
    ~idle_target() = default;

private:
    com::ptr<ID2D1RenderTarget> maker;
};

}  // namespace bench
