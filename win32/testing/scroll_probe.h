#pragma once

#include "win32/scroll_window.h"

#include <functional>
#include <ostream>
#include <vector>

#include <gtest/gtest.h>

// In the namespace of the types, where GoogleTest looks for them.
inline bool operator==(const POINT& left, const POINT& right) {
    return left.x == right.x && left.y == right.y;
}
inline std::ostream& operator<<(std::ostream& out, const POINT& point) {
    return out << '(' << point.x << ", " << point.y << ')';
}
inline bool operator==(const RECT& left, const RECT& right) {
    return EqualRect(&left, &right) != FALSE;
}
inline std::ostream& operator<<(std::ostream& out, const RECT& rect) {
    return out << '(' << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ')';
}

namespace win32_testing {

/// A scroll window that keeps what it is told, and lets a test in.
class scroll_probe : public win32::scroll_window {
public:
    using win32::scroll_window::adjust_mouse_lparam;
    using win32::scroll_window::frame;
    using win32::scroll_window::line_x;
    using win32::scroll_window::line_y;
    using win32::scroll_window::page_x;
    using win32::scroll_window::page_y;
    using win32::scroll_window::prepare_paint_context;

    std::vector<POINT> told;      ///< to scroll_offset_changed
    std::vector<UINT> messages;   ///< all that came
    std::function<void()> paint;  ///< on WM_PAINT; nothing is painted without it
    std::function<void(POINT)> changed;
    std::function<void(const MSG&)> ahead;   ///< of the window's own treatment
    std::function<void(const MSG&)> behind;  ///< it

    std::optional<long> on_window_message(MSG message) override {
        messages.push_back(message.message);
        if (ahead) ahead(message);
        const auto result = win32::scroll_window::on_window_message(message);
        if (behind) behind(message);
        if (message.message == WM_ERASEBKGND) return 1;
        if (message.message != WM_PAINT || !paint) return result;
        paint();
        return 0;
    }

    void scroll_offset_changed(POINT to) override {
        EXPECT_EQ(scroll_offset(), to);
        told.push_back(to);
        if (changed) changed(to);
    }

    /// Creates and shows the window with a client area of this size beside its bars, the whole of it valid.
    void open(int width, int height, DWORD bars = WS_HSCROLL | WS_VSCROLL) {
        create_window(0, L"scrolled", WS_POPUP | bars, 40, 30,
                      width + (bars & WS_VSCROLL ? GetSystemMetrics(SM_CXVSCROLL) : 0),
                      height + (bars & WS_HSCROLL ? GetSystemMetrics(SM_CYHSCROLL) : 0), nullptr, nullptr);
        show_window(SW_SHOW);
        UpdateWindow(get_window_handle());
        validate();
    }

    void validate() const { ValidateRect(get_window_handle(), nullptr); }

    [[nodiscard]] RECT client_rect() const {
        RECT rect{};
        GetClientRect(get_window_handle(), &rect);
        return rect;
    }

    [[nodiscard]] SCROLLINFO bar(int which) const {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        GetScrollInfo(get_window_handle(), which, &info);
        return info;
    }

    /// What of the client area is invalid, as the rectangles of a region: from the top, each as wide and then
    /// as high as can be.
    [[nodiscard]] std::vector<RECT> invalid() const {
        const HRGN update = CreateRectRgn(0, 0, 0, 0);
        GetUpdateRgn(get_window_handle(), update, FALSE);
        std::vector<DWORD> data(GetRegionData(update, 0, nullptr) / sizeof(DWORD) + 1);
        auto* const head = reinterpret_cast<RGNDATA*>(data.data());
        GetRegionData(update, static_cast<DWORD>(data.size() * sizeof(DWORD)), head);
        DeleteObject(update);
        const auto* const rects = reinterpret_cast<const RECT*>(head->Buffer);
        return {rects, rects + head->rdh.nCount};
    }

    LRESULT send(UINT message, WPARAM wparam, LPARAM lparam = 0) const {
        return SendMessageW(get_window_handle(), message, wparam, lparam);
    }
};

}  // namespace win32_testing
