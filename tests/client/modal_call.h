#pragma once

#include <windows.h>

#include <functional>

namespace client_test {

/// Makes `call`, which runs a message loop of its own, on this thread, and `actions` meanwhile in another.
/// What `call` throws passes on. One that does not end behind the actions is sent `WM_QUIT`, and the test
/// fails.
void while_shown(const std::function<void()>& actions, const std::function<void()>& call);

// For actions, in any thread. Each waits for a few seconds, and fails the test behind them.

/// The window on the screen that `owner` owns, once it is in front.
[[nodiscard]] HWND window_above(HWND owner);
/// A window inside another, however deep, of a class with a text, null for any, once it has a
/// size.
[[nodiscard]] HWND child_window(HWND parent, const wchar_t* class_name, const wchar_t* text);
void expect_soon(const std::function<bool()>& condition, const char* what);

/// A window that owns others, in front. It counts how often it is disabled or enabled.
class owner_window {
public:
    owner_window();
    owner_window(const owner_window&) = delete;
    owner_window& operator=(const owner_window&) = delete;
    ~owner_window();

    [[nodiscard]] HWND handle() const noexcept { return window; }
    [[nodiscard]] HWND child() const noexcept { return inside; }
    [[nodiscard]] int changes() const noexcept { return times; }
    /// How many windows it owns, hidden ones included.
    [[nodiscard]] int owned() const;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT id, WPARAM wparam, LPARAM lparam);

    HWND window = nullptr;
    HWND inside = nullptr;
    int times = 0;
};

}  // namespace client_test
