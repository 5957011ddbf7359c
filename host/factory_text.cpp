// Text formats and text layouts.

#include "com/check.h"
#include "d2d/factory.h"
#include "host/utf8.h"

#include <cfloat>
#include <cwchar>
#include <string>

namespace d2d {

com::ptr<IDWriteTextFormat> factory::create_text_format(const wchar_t* family, float size) {
    return create_text_format(family, DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_NORMAL, size);
}

com::ptr<IDWriteTextFormat> factory::create_text_format(const wchar_t* family, DWRITE_FONT_WEIGHT weight,
                                                        float size) {
    return create_text_format(family, weight, DWRITE_FONT_STYLE_NORMAL, size);
}

com::ptr<IDWriteTextFormat> factory::create_text_format(const wchar_t* family, DWRITE_FONT_STYLE style,
                                                        float size) {
    return create_text_format(family, DWRITE_FONT_WEIGHT_NORMAL, style, size);
}

com::ptr<IDWriteTextFormat> factory::create_text_format(const wchar_t* family, DWRITE_FONT_WEIGHT weight,
                                                        DWRITE_FONT_STYLE style, float size) {
    com::ptr<IDWriteTextFormat> made;
    com::check(dwrite()->CreateTextFormat(family, nullptr, weight, style, DWRITE_FONT_STRETCH_NORMAL, size,
                                          L"en-US", made.put()));
    return made;
}

com::ptr<IDWriteTextLayout> factory::create_text_layout(const wchar_t* text, unsigned length,
                                                        IDWriteTextFormat* format, float width,
                                                        float height) {
    const bool measure_width = width == 0.0f;
    const bool measure_height = height == 0.0f;
    com::ptr<IDWriteTextLayout> made;
    com::check(dwrite()->CreateTextLayout(text || length ? text : L"", length, format,
                                          measure_width ? FLT_MAX : width, measure_height ? FLT_MAX : height,
                                          made.put()));
    if (measure_width || measure_height) {
        DWRITE_TEXT_METRICS metrics{};
        com::check(made->GetMetrics(&metrics));
        if (measure_width) static_cast<void>(made->SetMaxWidth(metrics.width));
        if (measure_height) static_cast<void>(made->SetMaxHeight(metrics.height));
    }
    return made;
}

com::ptr<IDWriteTextLayout> factory::create_text_layout(const char* text, unsigned length,
                                                        IDWriteTextFormat* format, float width,
                                                        float height) {
    const std::string_view bytes(text, length);
    const unsigned units = utf16_length(bytes);
    // No text with an impossible length: the platform refuses it, and malformed text is its failure.
    if (units == malformed_utf8) {
        return create_text_layout(static_cast<const wchar_t*>(nullptr), units, format, width, height);
    }
    std::wstring decoded(units, L'\0');
    fill_utf16(bytes, decoded.data());
    return create_text_layout(decoded.c_str(), units, format, width, height);
}

com::ptr<IDWriteTextLayout> factory::create_text_layout(const wchar_t* text, IDWriteTextFormat* format,
                                                        float width, float height) {
    return create_text_layout(text, static_cast<unsigned>(std::wcslen(text)), format, width, height);
}

com::ptr<IDWriteTextLayout> factory::create_text_layout(const char* text, IDWriteTextFormat* format,
                                                        float width, float height) {
    return create_text_layout(std::string_view(text), format, width, height);
}

com::ptr<IDWriteTextLayout> factory::create_text_layout(std::string_view text, IDWriteTextFormat* format,
                                                        float width, float height) {
    return create_text_layout(text.data(), static_cast<unsigned>(text.size()), format, width, height);
}

com::ptr<IDWriteTextLayout> factory::create_text_layout(std::wstring_view text, IDWriteTextFormat* format,
                                                        float width, float height) {
    return create_text_layout(text.data(), static_cast<unsigned>(text.size()), format, width, height);
}

}  // namespace d2d
