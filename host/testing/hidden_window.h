#pragma once

#include <windows.h>

#include <stdexcept>

namespace d2d::fakes {

/// A window of the system that nobody sees, for what needs a handle: 200 by 100 pixels of client area.
class hidden_window {
public:
    explicit hidden_window(DWORD style = WS_POPUP)
        : handle_(CreateWindowExW(0, L"STATIC", L"", style, 30, 40, 200, 100, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr)) {
        if (!handle_) throw std::runtime_error("no window for the test");
    }
    hidden_window(const hidden_window&) = delete;
    hidden_window& operator=(const hidden_window&) = delete;
    ~hidden_window() { DestroyWindow(handle_); }

    [[nodiscard]] HWND get() const noexcept { return handle_; }

private:
    HWND handle_;
};

}  // namespace d2d::fakes
