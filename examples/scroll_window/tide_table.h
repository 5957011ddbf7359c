#pragma once

#include "gdi.h"
#include "tides.h"
#include "win32/scroll_window.h"

namespace tide_table {

/// The heights of the tide: a row for each port, a column for each hour. A title stands still in the frame;
/// the hours follow horizontal scrolling, the ports and their ranges vertical scrolling. Closing it ends the
/// message loop.
class window : public win32::scroll_window {
public:
    window();

    std::optional<long> on_window_message(MSG message) override;
    void scroll_offset_changed(POINT offset) override;

private:
    void paint();
    void paint_heights(HDC dc) const;
    void paint_hours(HDC dc) const;
    void paint_ports(HDC dc) const;
    void paint_ranges(HDC dc) const;
    void paint_frame(HDC dc) const;
    void paint_corner(HDC dc, const RECT& rect, std::wstring_view text, UINT align) const;
    void follow_right_edge(const WINDOWPOS& position);
    void invalidate(RECT rect) const;
    [[nodiscard]] RECT client() const;

    font title = make_font(24, FW_SEMIBOLD);
    font plain = make_font(14);
    font strong = make_font(14, FW_BOLD);
    font small_print = make_font(12);
    POINT painted_offset{};
    LONG painted_width = 0;
};

}  // namespace tide_table
