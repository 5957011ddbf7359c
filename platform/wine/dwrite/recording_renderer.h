#pragma once

#include "glyph_clusters.h"

#include <windows.h>

#include <dwrite.h>

#include <vector>

namespace completion {

/// An inline object or a trimming sign as it is drawn.
struct drawn_object {
    IDWriteInlineObject* object;  ///< borrowed from the layout
    float left;
    bool right_to_left;
};

/// Keeps where a layout draws its text, without any rounding to pixels. For the stack of the one who draws.
class recording_renderer final : public IDWriteTextRenderer {
public:
    /// Draws the layout at the origin; throws completion::failure.
    explicit recording_renderer(IDWriteTextLayout* layout);

    /// In the order of the text.
    std::vector<glyph_cluster> clusters;
    std::vector<drawn_object> objects;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE IsPixelSnappingDisabled(void* context, BOOL* disabled) override;
    HRESULT STDMETHODCALLTYPE GetCurrentTransform(void* context, DWRITE_MATRIX* transform) override;
    HRESULT STDMETHODCALLTYPE GetPixelsPerDip(void* context, FLOAT* pixels) override;

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
};

}  // namespace completion
