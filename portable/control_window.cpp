#include "portable/control_window.h"

#include "portable/toolkit_font.h"
#include "win32/module.h"

#include <stdexcept>

namespace ui::mossHarbour {
namespace {

// Clients may have windows of their own in ours, with something else as their user data.
constexpr wchar_t widget_mark[] = L"mossHarbour_widget";

}  // namespace

HWND create_control_window(const window_kind& kind, HWND parent, IHwndWidget* widget) {
    const HWND created =
        CreateWindowExW(kind.ex_style, kind.class_name, nullptr, kind.style, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, parent, nullptr, win32::library_module(), nullptr);
    if (!created) throw std::runtime_error("failed to create window!");
    SetWindowLongPtrW(created, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(widget));
    SetPropW(created, widget_mark, created);
    SendMessageW(created, WM_SETFONT, reinterpret_cast<WPARAM>(toolkit_font), FALSE);
    return created;
}

void destroy_control_window(HWND window) noexcept {
    RemovePropW(window, widget_mark);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    DestroyWindow(window);
}

// Anybody may send a message that names any window: another program's holds no address of ours.
IHwndWidget* widget_of(HWND window) noexcept {
    if (!window || GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) return nullptr;
    if (!GetPropW(window, widget_mark)) return nullptr;
    return reinterpret_cast<IHwndWidget*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

std::optional<LRESULT> route_notification(UINT message, WPARAM wparam, LPARAM lparam) {
    if (lparam == 0) return {};
    auto* const notification = message == WM_NOTIFY ? reinterpret_cast<NMHDR*>(lparam) : nullptr;
    const HWND sender = notification ? notification->hwndFrom : reinterpret_cast<HWND>(lparam);
    const com::ptr<IHwndWidget> told = widget_of(sender);  // the client may take it away meanwhile
    if (!told) return {};
    return notification ? told->on_notify(notification) : told->on_command(wparam);
}

std::wstring text_of_window(HWND window) {
    const int length = GetWindowTextLengthW(window);
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');  // with room for the terminator
    const int copied = GetWindowTextW(window, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

}  // namespace ui::mossHarbour
