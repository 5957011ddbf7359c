#pragma once

#include "ui/mossHarbour/measure_context.h"

namespace ui::mossHarbour {

/// Measures text in the toolkit font as a window draws it. Text is measured as the controls show it: lines
/// are broken at line breaks, and "&" marks the next character.
class GDI_measure_context final : public measure_context {
public:
    explicit GDI_measure_context(HWND measured_for);
    GDI_measure_context(const GDI_measure_context&) = delete;
    GDI_measure_context& operator=(const GDI_measure_context&) = delete;
    ~GDI_measure_context();

    // measure_context
    SIZE measure_text(const wchar_t* text, std::size_t length) override;

private:
    HDC dc;
    HWND window;
    HFONT former_font;
};

}  // namespace ui::mossHarbour
