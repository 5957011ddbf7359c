#include "controls/line_edit/text_renderer.h"

#include "com/check.h"
#include "com/ptr.h"
#include "controls/line_edit/colored_text_effect.h"

namespace d2d::line_edit {
namespace {

_D3DCOLORVALUE color_of(IUnknown* effect) {
    constexpr _D3DCOLORVALUE black{0, 0, 0, 1};
    if (!effect) return black;
    com::ptr<IColoredTextEffect> colored;
    const HRESULT result = effect->QueryInterface(com::guid_of<IColoredTextEffect>(), colored.put_void());
    if (result == E_NOINTERFACE) return black;
    com::check(result);
    return static_cast<const colored_text_effect&>(*colored).color;
}

}  // namespace

HRESULT text_renderer::QueryInterface(const IID& id, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (!com::same_guid(id, com::guid_of<IUnknown>()) &&
        !com::same_guid(id, com::guid_of<IDWritePixelSnapping>()) &&
        !com::same_guid(id, com::guid_of<IDWriteTextRenderer>())) {
        return E_NOINTERFACE;
    }
    *out = static_cast<IDWriteTextRenderer*>(this);
    return S_OK;
}

/// Leaves the flag as the caller has it.
HRESULT text_renderer::IsPixelSnappingDisabled(void*, BOOL*) {
    return S_OK;
}

HRESULT text_renderer::GetCurrentTransform(void*, DWRITE_MATRIX* transform) {
    D2D_MATRIX_3X2_F matrix;
    target.GetTransform(&matrix);
    *transform = {matrix._11, matrix._12, matrix._21, matrix._22, matrix._31, matrix._32};
    return S_OK;
}

HRESULT text_renderer::GetPixelsPerDip(void*, FLOAT* pixels) {
    float horizontal = 0;
    float vertical = 0;
    target.GetDpi(&horizontal, &vertical);
    *pixels = horizontal / 96;
    return S_OK;
}

HRESULT text_renderer::DrawGlyphRun(void*, FLOAT x, FLOAT y, DWRITE_MEASURING_MODE mode,
                                    const DWRITE_GLYPH_RUN* run, const DWRITE_GLYPH_RUN_DESCRIPTION*,
                                    IUnknown* effect) {
    brush.SetColor(color_of(effect));
    target.DrawGlyphRun({x, y}, run, &brush, mode);
    return S_OK;
}

HRESULT text_renderer::DrawUnderline(void*, FLOAT, FLOAT, const DWRITE_UNDERLINE*, IUnknown*) {
    return E_NOTIMPL;
}

HRESULT text_renderer::DrawStrikethrough(void*, FLOAT, FLOAT, const DWRITE_STRIKETHROUGH*, IUnknown*) {
    return E_NOTIMPL;
}

HRESULT text_renderer::DrawInlineObject(void*, FLOAT, FLOAT, IDWriteInlineObject*, BOOL, BOOL, IUnknown*) {
    return E_NOTIMPL;
}

}  // namespace d2d::line_edit
