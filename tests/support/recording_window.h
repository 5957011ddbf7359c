#pragma once

#include <windows.h>

#include <vector>

namespace test_support {

/// A visible window that keeps the messages it gets; for tests of the support library itself.
class recording_window {
public:
    recording_window();
    recording_window(const recording_window&) = delete;
    recording_window& operator=(const recording_window&) = delete;
    ~recording_window();

    [[nodiscard]] HWND handle() const noexcept { return window_; }
    [[nodiscard]] const std::vector<MSG>& messages() const noexcept { return messages_; }
    /// How often message `id` has come.
    [[nodiscard]] int count(UINT id) const;
    /// The last message `id`; fails by exception when none has come.
    [[nodiscard]] MSG last(UINT id) const;

    /// With this set a press starts a modal loop that ends with the release, as buttons do it.
    bool modal_while_pressed = false;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT id, WPARAM wparam, LPARAM lparam);
    void run_modal_loop();

    HWND window_ = nullptr;
    std::vector<MSG> messages_;
};

}  // namespace test_support
