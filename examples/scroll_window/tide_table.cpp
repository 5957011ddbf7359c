#include "tide_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace tide_table {
namespace {

constexpr int row_height = 28;
constexpr int column_width = 56;
constexpr int title_height = 68;
constexpr int hours_height = 48;
constexpr int ports_width = 208;
constexpr int ranges_width = 84;
constexpr int table_width = hours_shown * column_width;

constexpr COLORREF paper = colour(0xF4F1E8);
constexpr COLORREF band = colour(0x24474F);
constexpr COLORREF strip = colour(0xE3E6DC);
constexpr COLORREF strip_dark = colour(0xD3D9CE);
constexpr COLORREF rule = colour(0xBCC6BC);
constexpr COLORREF ink = colour(0x22363A);
constexpr COLORREF faint_ink = colour(0x6B7C78);
constexpr COLORREF white = colour(0xFFFFFF);
constexpr COLORREF shallow = colour(0xF2F6EE);
constexpr COLORREF deep = colour(0x2F7389);
constexpr COLORREF mark = colour(0xE0A63A);

int row_count() {
    return static_cast<int>(ports().size());
}

std::wstring metres(double value) {
    const long tenths = std::lround(value * 10);
    return (tenths < 0 ? L"−" : L"") + std::to_wstring(std::labs(tenths) / 10) + L"." +
           std::to_wstring(std::labs(tenths) % 10);
}

/// Indices of rows or columns of one size that show between two logical positions.
struct span {
    int first;
    int last;  ///< one behind
};

span shown(LONG from, LONG to, int size, int count) {
    const int first = static_cast<int>(from) / size;
    const int last = (static_cast<int>(to) + size - 1) / size;
    return {std::clamp(first, 0, count), std::clamp(last, 0, count)};
}

/// What is to be painted, in logical coordinates.
RECT clip_of(HDC dc) {
    RECT clip{};
    GetClipBox(dc, &clip);
    return clip;
}

}  // namespace

window::window() {
    frame = {0, title_height, 0, 0};
    line_x = column_width;
    line_y = row_height;
    set_scroll_margin({ports_width, hours_height, ranges_width, 0});
    set_scroll_region({0, 0, table_width, row_count() * row_height});
}

std::optional<long> window::on_window_message(MSG message) {
    switch (message.message) {
        case WM_PAINT:
            paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;  // everything is painted over
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(message.lParam)->ptMinTrackSize = {480, 260};
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            break;
    }
    const auto result = win32::scroll_window::on_window_message(message);
    if (message.message == WM_WINDOWPOSCHANGED)
        follow_right_edge(*reinterpret_cast<const WINDOWPOS*>(message.lParam));
    return result;
}

// The right strip moves with the edge of a window that is sized. What stands above it does not, and nothing
// moves when the edge is another because a bar has come or gone.
void window::follow_right_edge(const WINDOWPOS& position) {
    RECT stale = client();
    if (stale.right == painted_width) return;
    painted_width = stale.right;
    if ((position.flags & SWP_NOSIZE) == 0) stale.bottom = title_height + hours_height;
    invalidate(stale);
}

// The corners move with the strips: they, and the places where they went, are painted anew.
void window::scroll_offset_changed(POINT to) {
    const LONG across = std::abs(to.x - painted_offset.x);
    const LONG down = std::abs(to.y - painted_offset.y);
    painted_offset = to;
    const LONG bottom = title_height + hours_height;
    const LONG right = client().right;
    invalidate({0, title_height, ports_width + across, bottom});
    invalidate({right - ranges_width - across, title_height, right, bottom});
    invalidate({0, bottom, ports_width, bottom + down});
    invalidate({right - ranges_width, bottom, right, bottom + down});
}

void window::invalidate(RECT rect) const {
    InvalidateRect(get_window_handle(), &rect, FALSE);
}

RECT window::client() const {
    RECT rect{};
    GetClientRect(get_window_handle(), &rect);
    return rect;
}

void window::paint() {
    paint_context context(this);
    const auto paint_part = [&](scroll_area area, void (window::*painter)(HDC) const) {
        const auto state = prepare_paint_context(area, context);
        (this->*painter)(context);
    };
    paint_part(scroll_area::scrolled, &window::paint_heights);
    paint_part(scroll_area::top_margin, &window::paint_hours);
    paint_part(scroll_area::left_margin, &window::paint_ports);
    paint_part(scroll_area::right_margin, &window::paint_ranges);
    paint_part(scroll_area::unscrolled, &window::paint_frame);
}

void window::paint_heights(HDC dc) const {
    const RECT clip = clip_of(dc);
    fill(dc, clip, paper);
    const span rows = shown(clip.top, clip.bottom, row_height, row_count());
    const span columns = shown(clip.left, clip.right, column_width, hours_shown);
    for (int row = rows.first; row < rows.last; ++row) {
        const port& at = ports()[static_cast<std::size_t>(row)];
        const double lowest = at.mean_level - at.lunar - at.solar;
        for (int hour = columns.first; hour < columns.last; ++hour) {
            const double level = (height(at, hour) - lowest) / (at.lunar + at.solar) / 2;
            const bool high = is_high_water(at, hour);
            RECT cell{hour * column_width, row * row_height, (hour + 1) * column_width - 1,
                      (row + 1) * row_height - 1};
            fill(dc, cell, blend(shallow, deep, std::clamp(level, 0.0, 1.0)));
            write(dc, high ? strong : plain, level > 0.68 ? white : ink, cell, metres(height(at, hour)),
                  DT_CENTER);
            if (high) fill(dc, {cell.left, cell.bottom - 3, cell.right, cell.bottom}, mark);
        }
    }
}

void window::paint_hours(HDC dc) const {
    static constexpr std::array days{L"Friday 14 March", L"Saturday 15 March", L"Sunday 16 March"};
    const RECT clip = clip_of(dc);
    fill(dc, clip, strip);
    // The strip starts at the frame, to the left of what it heads.
    const auto left_of = [](int hour) { return ports_width + hour * column_width; };
    const span columns = shown(clip.left - ports_width, clip.right - ports_width, column_width, hours_shown);
    for (int day = columns.first / 24; day < (columns.last + 23) / 24; ++day) {
        RECT rect{left_of(day * 24), 0, left_of(day * 24 + 24) - 1, hours_height / 2};
        fill(dc, rect, day % 2 ? strip : strip_dark);
        fill(dc, {rect.right, 0, rect.right + 1, hours_height}, rule);
        // A day is named at each quarter of it, so that one name always shows.
        for (int quarter = 0; quarter < 4; ++quarter) {
            rect.left = left_of(day * 24 + quarter * 6) + 10;
            write(dc, strong, quarter ? faint_ink : ink, rect, days.at(static_cast<std::size_t>(day)),
                  DT_LEFT);
        }
    }
    for (int hour = columns.first; hour < columns.last; ++hour) {
        const RECT rect{left_of(hour), hours_height / 2, left_of(hour + 1) - 1, hours_height};
        const std::wstring digits = std::to_wstring(hour % 24);
        write(dc, plain, ink, rect, (digits.size() < 2 ? L"0" : L"") + digits + L":00", DT_CENTER);
    }
    fill(dc, {clip.left, hours_height - 1, clip.right, hours_height}, rule);
}

void window::paint_ports(HDC dc) const {
    const RECT clip = clip_of(dc);
    fill(dc, clip, strip);
    // The strip starts at the frame, above what it heads.
    const span rows = shown(clip.top - hours_height, clip.bottom - hours_height, row_height, row_count());
    for (int row = rows.first; row < rows.last; ++row) {
        const port& at = ports()[static_cast<std::size_t>(row)];
        const LONG top = hours_height + row * row_height;
        const RECT rect{0, top, ports_width - 1, top + row_height - 1};
        fill(dc, rect, row % 2 ? strip : strip_dark);
        write(dc, strong, ink, {14, top, 112, rect.bottom}, at.name, DT_LEFT);
        write(dc, small_print, faint_ink, {112, top, ports_width - 12, rect.bottom}, at.country, DT_RIGHT);
    }
    fill(dc, {ports_width - 1, clip.top, ports_width, clip.bottom}, rule);
}

void window::paint_ranges(HDC dc) const {
    const RECT clip = clip_of(dc);
    fill(dc, clip, strip);
    const span rows = shown(clip.top - hours_height, clip.bottom - hours_height, row_height, row_count());
    for (int row = rows.first; row < rows.last; ++row) {
        const double range = greatest_range(ports()[static_cast<std::size_t>(row)]);
        const LONG top = hours_height + row * row_height;
        const RECT rect{1, top, ranges_width, top + row_height - 1};
        fill(dc, rect, row % 2 ? strip : strip_dark);
        fill(dc, {1, rect.bottom - 3, 1 + static_cast<LONG>(range * 7), rect.bottom}, deep);
        write(dc, plain, ink, {1, top, ranges_width - 14, rect.bottom}, metres(range), DT_RIGHT);
    }
    fill(dc, {0, clip.top, 1, clip.bottom}, rule);
}

void window::paint_corner(HDC dc, const RECT& rect, std::wstring_view text, UINT align) const {
    fill(dc, rect, band);
    write(dc, strong, white, {rect.left + 14, rect.top, rect.right - 14, rect.bottom}, text, align);
}

void window::paint_frame(HDC dc) const {
    const LONG right = client().right;
    fill(dc, {0, 0, right, title_height}, band);
    write(dc, title, white, {14, 8, right, 40}, L"Heights of the tide", DT_LEFT);
    write(dc, small_print, strip, {14, 40, right, 60},
          L"metres above chart datum — made up, of no use at sea", DT_LEFT);
    const RECT key{right - 150, 36, right - 130, 39};
    fill(dc, key, mark);
    write(dc, small_print, strip, {key.right + 8, 28, right, 46}, L"high water", DT_LEFT);
    const LONG bottom = title_height + hours_height;
    paint_corner(dc, {0, title_height, ports_width, bottom}, L"Port", DT_LEFT);
    paint_corner(dc, {right - ranges_width, title_height, right, bottom}, L"Range", DT_RIGHT);
}

}  // namespace tide_table
