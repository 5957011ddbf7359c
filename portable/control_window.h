#pragma once

#include "portable/IHwndWidget.h"

#include <string>

#include <windows.h>

namespace ui::mossHarbour {

/// What kind of window a native control is.
struct window_kind {
    const wchar_t* class_name;
    DWORD style;
    DWORD ex_style = 0;
};

/// Creates a control's window, in the toolkit font, at a place that its first arrangement replaces. The
/// window knows `widget` until `destroy_control_window`. Throws `std::runtime_error` "failed to create
/// window!".
[[nodiscard]] HWND create_control_window(const window_kind& kind, HWND parent, IHwndWidget* widget);

/// Its last messages reach nobody.
void destroy_control_window(HWND window) noexcept;

/// The widget whose window this is, or null: for a window that is no control, has been left by its widget, or
/// is another thread's.
[[nodiscard]] IHwndWidget* widget_of(HWND window) noexcept;

/// Hands a WM_COMMAND or WM_NOTIFY that came to the parent on to the control that it is from. Empty when
/// there is none or it does not handle this.
[[nodiscard]] std::optional<LRESULT> route_notification(UINT message, WPARAM wparam, LPARAM lparam);

[[nodiscard]] std::wstring text_of_window(HWND window);

}  // namespace ui::mossHarbour
