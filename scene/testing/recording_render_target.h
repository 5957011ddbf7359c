#pragma once

#include "scene/testing/fake_device_objects.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <d2d1.h>
#include <dwrite.h>

namespace d2d::scene::fakes {

/// A render target that writes down the calls that draw, create or change its state, one line each:
///
///     CreateSolidColorBrush 1 0 0 1
///     SetTransform 1 0 0 1 10 20
///     PushAxisAlignedClip 0 0 50 50 0
///     FillGeometry rectangle(0 0 10 10) brush(1 0 0 1)
///     DrawGeometry ellipse(5 5 2 2) brush(0 0 1 1) 2 null
///     DrawTextLayout 4 8 layout brush(0 0 0 1) 0
///     DrawBitmap bitmap(16 8) 10 20 26 28 1 1 0 0 16 8
///     PopAxisAlignedClip
///
/// Arguments in the order of the call, numbers exact, enumerators as numbers, a null pointer as "null". An
/// object is written as what it is: a brush by its colour at that moment, a bitmap by its size, rectangles,
/// rounded rectangles and ellipses by their numbers, others as "geometry", "layout", "style"; or as the name
/// that `name` gave it.
///
/// Brushes and bitmaps are fakes, which need no device; or all calls go on to a real target as well, whose
/// objects are used then. Without a real target the other `Create` operations answer `E_NOTIMPL`. What a
/// client draws on another interface of the real target (`ID2D1DeviceContext`) is not written down.
///
/// Stands on the stack of a test: it is not destroyed by its count, and has to outlive whoever uses it.
class recording_render_target final : public ID2D1RenderTarget {
public:
    recording_render_target() = default;
    /// Sends everything on to `real_target`, which is kept.
    explicit recording_render_target(ID2D1RenderTarget* real_target) : real(real_target) {}
    recording_render_target(const recording_render_target&) = delete;
    recording_render_target& operator=(const recording_render_target&) = delete;

    [[nodiscard]] const std::vector<std::string>& calls() const noexcept { return record->calls; }
    /// The calls so far, which are forgotten: the next step's stand alone.
    std::vector<std::string> take_calls() { return std::exchange(record->calls, {}); }
    /// Adds a line of the test's own: what else happens shows in one order with the calls.
    void note(std::string line) { record->calls.push_back(std::move(line)); }

    [[nodiscard]] int created_brushes() const noexcept { return record->brushes.created; }
    [[nodiscard]] int created_bitmaps() const noexcept { return record->bitmaps.created; }
    /// How many of the fake brushes and bitmaps are alive.
    [[nodiscard]] int live_brushes() const noexcept { return record->brushes.alive; }
    [[nodiscard]] int live_bitmaps() const noexcept { return record->bitmaps.alive; }
    /// References on this target.
    [[nodiscard]] ULONG references() const noexcept { return reference_count; }

    /// Writes an object as `text` from here on. The object is not kept.
    void name(IUnknown* object, std::string text);
    /// Lets `count` more brushes and bitmaps be made; the ones behind them fail with `failure`, until this is
    /// called with `S_OK`.
    void fail_creations_after(int count, HRESULT failure);
    /// Makes what `CreateCompatibleRenderTarget` gives; without it a real target does.
    std::function<HRESULT(const D2D1_SIZE_F& size, ID2D1BitmapRenderTarget** target)> make_layer;
    /// What `EndDraw` answers when there is no real target, or the real one succeeds.
    HRESULT end_draw_result = S_OK;
    /// What `GetSize` and `GetPixelSize` answer when there is no real target.
    D2D1_SIZE_U pixel_size{100, 100};

    // IUnknown, ID2D1Resource
    HRESULT STDMETHODCALLTYPE QueryInterface(const GUID& id, void** out) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++reference_count; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --reference_count; }
    void STDMETHODCALLTYPE GetFactory(ID2D1Factory** factory) const override;

    // ID2D1RenderTarget: what creates
    HRESULT STDMETHODCALLTYPE CreateBitmap(D2D1_SIZE_U size, const void* source, UINT32 pitch,
                                           const D2D1_BITMAP_PROPERTIES* properties,
                                           ID2D1Bitmap** bitmap) override;
    HRESULT STDMETHODCALLTYPE CreateBitmapFromWicBitmap(IWICBitmapSource* source,
                                                        const D2D1_BITMAP_PROPERTIES* properties,
                                                        ID2D1Bitmap** bitmap) override;
    HRESULT STDMETHODCALLTYPE CreateSharedBitmap(const IID& id, void* data,
                                                 const D2D1_BITMAP_PROPERTIES* properties,
                                                 ID2D1Bitmap** bitmap) override;
    HRESULT STDMETHODCALLTYPE CreateBitmapBrush(ID2D1Bitmap* bitmap,
                                                const D2D1_BITMAP_BRUSH_PROPERTIES* bitmap_properties,
                                                const D2D1_BRUSH_PROPERTIES* properties,
                                                ID2D1BitmapBrush** brush) override;
    HRESULT STDMETHODCALLTYPE CreateSolidColorBrush(const D2D1_COLOR_F* color,
                                                    const D2D1_BRUSH_PROPERTIES* properties,
                                                    ID2D1SolidColorBrush** brush) override;
    HRESULT STDMETHODCALLTYPE CreateGradientStopCollection(const D2D1_GRADIENT_STOP* stops, UINT count,
                                                           D2D1_GAMMA gamma, D2D1_EXTEND_MODE mode,
                                                           ID2D1GradientStopCollection** collection) override;
    HRESULT STDMETHODCALLTYPE CreateLinearGradientBrush(const D2D1_LINEAR_GRADIENT_BRUSH_PROPERTIES* gradient,
                                                        const D2D1_BRUSH_PROPERTIES* properties,
                                                        ID2D1GradientStopCollection* stops,
                                                        ID2D1LinearGradientBrush** brush) override;
    HRESULT STDMETHODCALLTYPE CreateRadialGradientBrush(const D2D1_RADIAL_GRADIENT_BRUSH_PROPERTIES* gradient,
                                                        const D2D1_BRUSH_PROPERTIES* properties,
                                                        ID2D1GradientStopCollection* stops,
                                                        ID2D1RadialGradientBrush** brush) override;
    HRESULT STDMETHODCALLTYPE CreateCompatibleRenderTarget(const D2D1_SIZE_F* size, const D2D1_SIZE_U* pixels,
                                                           const D2D1_PIXEL_FORMAT* format,
                                                           D2D1_COMPATIBLE_RENDER_TARGET_OPTIONS options,
                                                           ID2D1BitmapRenderTarget** target) override;
    HRESULT STDMETHODCALLTYPE CreateLayer(const D2D1_SIZE_F* size, ID2D1Layer** layer) override;
    HRESULT STDMETHODCALLTYPE CreateMesh(ID2D1Mesh** mesh) override;

    // what draws
    void STDMETHODCALLTYPE DrawLine(D2D1_POINT_2F from, D2D1_POINT_2F to, ID2D1Brush* brush, FLOAT width,
                                    ID2D1StrokeStyle* style) override;
    void STDMETHODCALLTYPE DrawRectangle(const D2D1_RECT_F* rect, ID2D1Brush* brush, FLOAT width,
                                         ID2D1StrokeStyle* style) override;
    void STDMETHODCALLTYPE FillRectangle(const D2D1_RECT_F* rect, ID2D1Brush* brush) override;
    void STDMETHODCALLTYPE DrawRoundedRectangle(const D2D1_ROUNDED_RECT* rect, ID2D1Brush* brush, FLOAT width,
                                                ID2D1StrokeStyle* style) override;
    void STDMETHODCALLTYPE FillRoundedRectangle(const D2D1_ROUNDED_RECT* rect, ID2D1Brush* brush) override;
    void STDMETHODCALLTYPE DrawEllipse(const D2D1_ELLIPSE* ellipse, ID2D1Brush* brush, FLOAT width,
                                       ID2D1StrokeStyle* style) override;
    void STDMETHODCALLTYPE FillEllipse(const D2D1_ELLIPSE* ellipse, ID2D1Brush* brush) override;
    void STDMETHODCALLTYPE DrawGeometry(ID2D1Geometry* geometry, ID2D1Brush* brush, FLOAT width,
                                        ID2D1StrokeStyle* style) override;
    void STDMETHODCALLTYPE FillGeometry(ID2D1Geometry* geometry, ID2D1Brush* brush,
                                        ID2D1Brush* opacity_brush) override;
    void STDMETHODCALLTYPE FillMesh(ID2D1Mesh* mesh, ID2D1Brush* brush) override;
    void STDMETHODCALLTYPE FillOpacityMask(ID2D1Bitmap* mask, ID2D1Brush* brush,
                                           D2D1_OPACITY_MASK_CONTENT content, const D2D1_RECT_F* destination,
                                           const D2D1_RECT_F* source) override;
    void STDMETHODCALLTYPE DrawBitmap(ID2D1Bitmap* bitmap, const D2D1_RECT_F* destination, FLOAT opacity,
                                      D2D1_BITMAP_INTERPOLATION_MODE mode,
                                      const D2D1_RECT_F* source) override;
    void STDMETHODCALLTYPE DrawText(const WCHAR* text, UINT length, IDWriteTextFormat* format,
                                    const D2D1_RECT_F* box, ID2D1Brush* brush, D2D1_DRAW_TEXT_OPTIONS options,
                                    DWRITE_MEASURING_MODE mode) override;
    void STDMETHODCALLTYPE DrawTextLayout(D2D1_POINT_2F origin, IDWriteTextLayout* layout, ID2D1Brush* brush,
                                          D2D1_DRAW_TEXT_OPTIONS options) override;
    void STDMETHODCALLTYPE DrawGlyphRun(D2D1_POINT_2F origin, const DWRITE_GLYPH_RUN* run, ID2D1Brush* brush,
                                        DWRITE_MEASURING_MODE mode) override;

    // the state
    void STDMETHODCALLTYPE SetTransform(const D2D1_MATRIX_3X2_F* changed) override;
    void STDMETHODCALLTYPE GetTransform(D2D1_MATRIX_3X2_F* present) const override;
    void STDMETHODCALLTYPE SetAntialiasMode(D2D1_ANTIALIAS_MODE mode) override;
    D2D1_ANTIALIAS_MODE STDMETHODCALLTYPE GetAntialiasMode() const override;
    void STDMETHODCALLTYPE SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE mode) override;
    D2D1_TEXT_ANTIALIAS_MODE STDMETHODCALLTYPE GetTextAntialiasMode() const override;
    void STDMETHODCALLTYPE SetTextRenderingParams(IDWriteRenderingParams* parameters) override;
    void STDMETHODCALLTYPE GetTextRenderingParams(IDWriteRenderingParams** parameters) const override;
    void STDMETHODCALLTYPE SetTags(D2D1_TAG first, D2D1_TAG second) override;
    void STDMETHODCALLTYPE GetTags(D2D1_TAG* first, D2D1_TAG* second) const override;
    void STDMETHODCALLTYPE PushLayer(const D2D1_LAYER_PARAMETERS* parameters, ID2D1Layer* layer) override;
    void STDMETHODCALLTYPE PopLayer() override;
    HRESULT STDMETHODCALLTYPE Flush(D2D1_TAG* first, D2D1_TAG* second) override;
    void STDMETHODCALLTYPE SaveDrawingState(ID2D1DrawingStateBlock* block) const override;
    void STDMETHODCALLTYPE RestoreDrawingState(ID2D1DrawingStateBlock* block) override;
    void STDMETHODCALLTYPE PushAxisAlignedClip(const D2D1_RECT_F* rect, D2D1_ANTIALIAS_MODE mode) override;
    void STDMETHODCALLTYPE PopAxisAlignedClip() override;
    void STDMETHODCALLTYPE Clear(const D2D1_COLOR_F* color) override;
    void STDMETHODCALLTYPE BeginDraw() override;
    HRESULT STDMETHODCALLTYPE EndDraw(D2D1_TAG* first, D2D1_TAG* second) override;
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_PIXEL_FORMAT, GetPixelFormat, pixel_format())
    void STDMETHODCALLTYPE SetDpi(FLOAT x, FLOAT y) override;
    void STDMETHODCALLTYPE GetDpi(FLOAT* x, FLOAT* y) const override;
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_SIZE_F, GetSize, size())
    MOSSHARBOUR_AGGREGATE_RESULT(D2D1_SIZE_U, GetPixelSize, size_in_pixels())
    UINT32 STDMETHODCALLTYPE GetMaximumBitmapSize() const override;
    BOOL STDMETHODCALLTYPE IsSupported(const D2D1_RENDER_TARGET_PROPERTIES* properties) const override;

private:
    /// Writes down one call.
    template <class... Words>
    void write(const Words&... words);
    [[nodiscard]] std::string text_of(ID2D1Brush* brush) const;
    [[nodiscard]] std::string text_of(ID2D1Bitmap* bitmap) const;
    [[nodiscard]] std::string text_of(ID2D1Geometry* geometry) const;
    [[nodiscard]] std::string text_of(IUnknown* object, const char* kind) const;
    [[nodiscard]] const std::string* name_of(IUnknown* object) const;
    [[nodiscard]] HRESULT next_creation() noexcept;
    [[nodiscard]] D2D1_PIXEL_FORMAT pixel_format() const;
    [[nodiscard]] D2D1_SIZE_F size() const;
    [[nodiscard]] D2D1_SIZE_U size_in_pixels() const;

    com::ptr<ID2D1RenderTarget> real;
    std::shared_ptr<device_record> record = std::make_shared<device_record>();
    std::map<IUnknown*, std::string> names;
    D2D1_MATRIX_3X2_F transform{{{1, 0, 0, 1, 0, 0}}};
    ULONG reference_count = 0;
    int creations_left = 0;
    HRESULT creation_failure = S_OK;
};

}  // namespace d2d::scene::fakes
