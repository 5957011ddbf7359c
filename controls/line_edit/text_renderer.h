#pragma once

#include <d2d1.h>
#include <dwrite.h>

namespace d2d::line_edit {

/// Draws the glyphs of a text layout on a render target: black, or in the colour of their range's
/// `colored_text_effect`. Lives on the stack for one drawing, with nobody counting references.
class text_renderer final : public IDWriteTextRenderer {
public:
    /// Both are borrowed; the brush changes its colour.
    text_renderer(ID2D1RenderTarget& render_target, ID2D1SolidColorBrush& text_brush) noexcept
        : target(render_target), brush(text_brush) {}

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(const IID& id, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    // IDWritePixelSnapping
    HRESULT STDMETHODCALLTYPE IsPixelSnappingDisabled(void* context, BOOL* disabled) override;
    HRESULT STDMETHODCALLTYPE GetCurrentTransform(void* context, DWRITE_MATRIX* transform) override;
    HRESULT STDMETHODCALLTYPE GetPixelsPerDip(void* context, FLOAT* pixels) override;

    // IDWriteTextRenderer
    /// Throws `com::error` when an effect does not say what it is.
    HRESULT STDMETHODCALLTYPE DrawGlyphRun(void* context, FLOAT x, FLOAT y, DWRITE_MEASURING_MODE mode,
                                           const DWRITE_GLYPH_RUN* run,
                                           const DWRITE_GLYPH_RUN_DESCRIPTION* description,
                                           IUnknown* effect) override;
    HRESULT STDMETHODCALLTYPE DrawUnderline(void* context, FLOAT x, FLOAT y,
                                            const DWRITE_UNDERLINE* underline, IUnknown* effect) override;
    HRESULT STDMETHODCALLTYPE DrawStrikethrough(void* context, FLOAT x, FLOAT y,
                                                const DWRITE_STRIKETHROUGH* line, IUnknown* effect) override;
    HRESULT STDMETHODCALLTYPE DrawInlineObject(void* context, FLOAT x, FLOAT y, IDWriteInlineObject* object,
                                               BOOL sideways, BOOL right_to_left, IUnknown* effect) override;

private:
    ID2D1RenderTarget& target;
    ID2D1SolidColorBrush& brush;
};

}  // namespace d2d::line_edit
