#include "recording_renderer.h"

#include "failure.h"

#include <algorithm>

namespace completion {

recording_renderer::recording_renderer(IDWriteTextLayout* layout) {
    check(layout->Draw(nullptr, this, 0.0f, 0.0f));
    std::ranges::stable_sort(clusters, {}, &glyph_cluster::position);
}

HRESULT recording_renderer::QueryInterface(REFIID iid, void** result) {
    if (iid == __uuidof(IUnknown) || iid == __uuidof(IDWritePixelSnapping) ||
        iid == __uuidof(IDWriteTextRenderer)) {
        *result = this;
        return S_OK;
    }
    *result = nullptr;
    return E_NOINTERFACE;
}

HRESULT recording_renderer::IsPixelSnappingDisabled(void*, BOOL* disabled) {
    *disabled = TRUE;
    return S_OK;
}

HRESULT recording_renderer::GetCurrentTransform(void*, DWRITE_MATRIX* transform) {
    *transform = {1.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f};
    return S_OK;
}

HRESULT recording_renderer::GetPixelsPerDip(void*, FLOAT* pixels) {
    *pixels = 1.0f;
    return S_OK;
}

HRESULT recording_renderer::DrawGlyphRun(void*, FLOAT x, FLOAT y, DWRITE_MEASURING_MODE,
                                         const DWRITE_GLYPH_RUN* run,
                                         const DWRITE_GLYPH_RUN_DESCRIPTION* description, IUnknown*) {
    return guarded([&] {
        // A trimming sign draws itself without a place in the text.
        if (description && description->stringLength != 0) {
            append_glyph_clusters(x, y, *run, *description, clusters);
        }
        return S_OK;
    });
}

HRESULT recording_renderer::DrawUnderline(void*, FLOAT, FLOAT, const DWRITE_UNDERLINE*, IUnknown*) {
    return S_OK;
}

HRESULT recording_renderer::DrawStrikethrough(void*, FLOAT, FLOAT, const DWRITE_STRIKETHROUGH*, IUnknown*) {
    return S_OK;
}

HRESULT recording_renderer::DrawInlineObject(void*, FLOAT x, FLOAT, IDWriteInlineObject* object, BOOL,
                                             BOOL right_to_left, IUnknown*) {
    return guarded([&] {
        objects.push_back({object, x, right_to_left != FALSE});
        return S_OK;
    });
}

}  // namespace completion
