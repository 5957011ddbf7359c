#include "portable/GDI_measure_context.h"

#include "portable/toolkit_font.h"

namespace ui::mossHarbour {

GDI_measure_context::GDI_measure_context(HWND measured_for)
    : dc(GetDC(measured_for)),
      window(measured_for),
      former_font(static_cast<HFONT>(SelectObject(dc, toolkit_font))) {}

GDI_measure_context::~GDI_measure_context() {
    SelectObject(dc, former_font);
    ReleaseDC(window, dc);
}

SIZE GDI_measure_context::measure_text(const wchar_t* text, std::size_t length) {
    if (length == 0) return {};  // the system would leave the rectangle as it is
    RECT area{0, 0, 0x7fff, 0x7fff};
    DrawTextW(dc, text, static_cast<int>(length), &area, DT_CALCRECT);
    return {area.right, area.bottom};
}

}  // namespace ui::mossHarbour
