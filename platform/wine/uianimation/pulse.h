#pragma once

#include <windows.h>

namespace completion {

/// Receives the beats of a pulse.
class pulse_listener {
public:
    virtual void beat() = 0;

protected:
    ~pulse_listener() = default;
};

/// A periodic call on the thread that started it first, out of whatever message loop runs there: a
/// message-only window with a window timer. A window rather than a timer procedure, because DispatchMessageW
/// swallows what a timer procedure throws. The window is made at the first start, so that a pulse that never
/// beats costs nothing.
class pulse {
public:
    /// The listener is borrowed, and may destroy the pulse while it beats.
    explicit pulse(pulse_listener& listener) noexcept : listener_(&listener) {}
    ~pulse();
    pulse(const pulse&) = delete;
    pulse& operator=(const pulse&) = delete;

    /// Starts, or changes the period; a running pulse of the same period keeps its phase.
    [[nodiscard]] HRESULT start(UINT milliseconds) noexcept;

    /// After it nothing wakes the thread.
    void stop() noexcept;

private:
    static LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    static ATOM window_class() noexcept;
    [[nodiscard]] bool make_window() noexcept;

    pulse_listener* listener_;
    HWND window_ = nullptr;
    UINT period_ = 0;
};

}  // namespace completion
