#pragma once

#include <memory>
#include <string>
#include <type_traits>

#include <windows.h>

namespace tide_table {

// What the example needs of GDI: owned fonts, filled rectangles, lines of text.

struct delete_gdi_object {
    void operator()(HGDIOBJ object) const noexcept { DeleteObject(object); }
};
using font = std::unique_ptr<std::remove_pointer_t<HFONT>, delete_gdi_object>;

/// An anti-aliased font; `height` is that of its letters' cell without the accents' room, in pixels.
[[nodiscard]] font make_font(int height, int weight = FW_NORMAL);

/// 0xRRGGBB as GDI wants it.
[[nodiscard]] constexpr COLORREF colour(unsigned rgb) noexcept {
    return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF);
}

/// Between two colours: `share` from 0 to 1.
[[nodiscard]] COLORREF blend(COLORREF from, COLORREF to, double share) noexcept;

void fill(HDC dc, const RECT& rect, COLORREF with);

/// One line in the middle of a rectangle's height; `align` is DT_LEFT, DT_CENTER or DT_RIGHT.
void write(HDC dc, const font& with, COLORREF ink, RECT rect, std::wstring_view text, UINT align);

}  // namespace tide_table
