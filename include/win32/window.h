#pragma once

#include "com/api.h"

#include <optional>

#include <windows.h>

namespace win32 {

/// A native window as a C++ object: messages become the virtual `on_window_message`. Each derived class gets
/// a window class of its own, registered with its first window and named after the type.
///
/// Derive from it, and keep the object in place while the window lives: the window knows its address. There
/// is no virtual destructor: delete an object as the class that it is. For the thread that created the
/// window.
class MOSSHARBOUR_API window {
public:
    window() = default;
    window(const window&) = delete;
    window& operator=(const window&) = delete;
    /// Destroys the window if `destroy_window` has not. The messages of that come too late for a derived
    /// class, which is gone by then: call `destroy_window` ahead where they matter.
    ~window();

    /// A message of the window. Empty: it goes on to `DefWindowProcW`. A value: it was handled, and this is
    /// the result of the window procedure. What it throws passes through the window procedure to whoever
    /// dispatched the message.
    virtual std::optional<long> on_window_message(MSG message);
    /// The window's last message has come. The object may delete itself here, unless it ends its window with
    /// `destroy_window`, which goes on with it.
    virtual void on_final_message();
    /// Changes the window class ahead of its registration: everything but the window procedure.
    virtual void get_wndclass(WNDCLASSEXW& wc);

    /// Creates the native window, in pixels. Messages arrive in the course of it. Throws `win32::error` when
    /// the class cannot be registered or the window cannot be created.
    void create_window(DWORD ex_style, const wchar_t* title, DWORD style, int x, int y, int width, int height,
                       HWND parent, HMENU menu);
    /// The same where the system chooses place and size.
    void create_window(DWORD ex_style, const wchar_t* title, DWORD style, HWND parent, HMENU menu);
    void create_window(const wchar_t* title, DWORD style, HWND parent, HMENU menu);

    /// Destroys the native window; messages arrive in the course of it. With the last window of a class the
    /// window class is unregistered.
    void destroy_window();
    /// `ShowWindow`: `command` is one of the `SW_` values.
    void show_window(int command);
    /// Null until the window's first message.
    [[nodiscard]] HWND get_window_handle() const noexcept { return hwnd; }

    /// Painting with GDI, in a scope: `BeginPaint` and `EndPaint`.
    class MOSSHARBOUR_API paint_context {
    public:
        /// `owner` is the window that paints; it must be there.
        explicit paint_context(window* owner);
        paint_context(const paint_context&) = delete;
        paint_context& operator=(const paint_context&) = delete;
        ~paint_context();

        /// The device context, valid within the scope.
        operator HDC() const noexcept { return paint.hdc; }

    private:
        PAINTSTRUCT paint{};
        HWND painted;
    };

private:
    static LRESULT CALLBACK WndProc(HWND handle, UINT message, WPARAM wparam, LPARAM lparam);
    [[nodiscard]] ATOM register_class();

    HWND hwnd = nullptr;
};

}  // namespace win32
