#include "gdi.h"

#include <cmath>

namespace tide_table {

font make_font(int height, int weight) {
    return font(CreateFontW(-height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS,
                            CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH | FF_SWISS, L"Segoe UI"));
}

COLORREF blend(COLORREF from, COLORREF to, double share) noexcept {
    const auto mixed = [share](BYTE a, BYTE b) {
        return static_cast<BYTE>(std::lround(a + (b - a) * share));
    };
    return RGB(mixed(GetRValue(from), GetRValue(to)), mixed(GetGValue(from), GetGValue(to)),
               mixed(GetBValue(from), GetBValue(to)));
}

void fill(HDC dc, const RECT& rect, COLORREF with) {
    SetDCBrushColor(dc, with);
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void write(HDC dc, const font& with, COLORREF ink, RECT rect, std::wstring_view text, UINT align) {
    const HGDIOBJ former = SelectObject(dc, with.get());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, ink);
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &rect,
              align | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(dc, former);
}

}  // namespace tide_table
