#include "controls/tree/looks.h"

#include "win32/error.h"
#include "win32/module.h"

#include <windows.h>

namespace d2d::ui::tree {
namespace {

com::ptr<scene::IBrush> brush_of(COLORREF color) {
    const auto channel = [](BYTE value) { return static_cast<float>(value) / 255; };
    return scene::create_solid_color_brush(
        {channel(GetRValue(color)), channel(GetGValue(color)), channel(GetBValue(color)), 1});
}

com::ptr<scene::IBrush> system_brush(int index) {
    return brush_of(GetSysColor(index));
}

com::ptr<scene::ITextFormat> system_icon_title_format() {
    LOGFONTW font{};
    win32::check(SystemParametersInfoW(SPI_GETICONTITLELOGFONT, sizeof font, &font, 0));
    return scene::ITextFormat::get(font);
}

/// One of the library's own icons; the system keeps it.
com::ptr<scene::IBitmap> library_icon(WORD number) {
    constexpr int size = 16;
    const HANDLE icon =
        LoadImageW(win32::library_module(), MAKEINTRESOURCEW(number), IMAGE_ICON, size, size, LR_SHARED);
    win32::check(icon != nullptr);
    return scene::IBitmap::create(static_cast<HICON>(icon));
}

}  // namespace

looks::looks()
    : hot{scene::create_solid_color_brush({0.9f, 0.9f, 1, 0.7f}),
          scene::create_solid_color_brush({0.5f, 0.5f, 1, 0.7f})},
      selected{system_brush(COLOR_HIGHLIGHT), system_brush(COLOR_HOTLIGHT)},
      inactive{system_brush(COLOR_INACTIVECAPTION), system_brush(COLOR_INACTIVECAPTION)},
      text_format(system_icon_title_format()),
      text_brush(system_brush(COLOR_WINDOWTEXT)),
      selected_text_brush(system_brush(COLOR_HIGHLIGHTTEXT)),
      inactive_text_brush(system_brush(COLOR_INACTIVECAPTIONTEXT)),
      collapsed_icon(library_icon(1)),
      expanded_icon(library_icon(2)) {}

}  // namespace d2d::ui::tree
