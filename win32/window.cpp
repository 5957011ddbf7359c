#include "win32/window.h"

#include "win32/error.h"
#include "win32/module.h"
#include "win32/window_class_table.h"

#include <array>
#include <typeinfo>

namespace win32 {
namespace {

using class_name = std::array<wchar_t, 256>;

class_name name_of(const std::type_info& type) {
    class_name name{};
    MultiByteToWideChar(CP_UTF8, 0, type.name(), -1, name.data(), static_cast<int>(name.size()));
    return name;
}

}  // namespace

window::~window() {
    if (hwnd) DestroyWindow(hwnd);
}

std::optional<long> window::on_window_message(MSG) {
    return {};
}

void window::on_final_message() {}

void window::get_wndclass(WNDCLASSEXW&) {}

ATOM window::register_class() {
    const class_name name = name_of(typeid(*this));
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof wc;
    wc.style = CS_DBLCLKS;
    wc.hInstance = library_module();
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.lpszClassName = name.data();
    get_wndclass(wc);
    wc.lpfnWndProc = WndProc;
    return check(RegisterClassExW(&wc));
}

void window::create_window(DWORD ex_style, const wchar_t* title, DWORD style, int x, int y, int width,
                           int height, HWND parent, HMENU menu) {
    const std::type_info& type = typeid(*this);
    auto& table = window_class_table::instance();
    if (table.of(type).atom == 0) {
        const ATOM registered = register_class();
        table.of(type).atom = registered;
    }
    const HWND created = CreateWindowExW(ex_style, MAKEINTATOM(table.of(type).atom), title, style, x, y,
                                         width, height, parent, menu, library_module(), this);
    if (!created) {
        hwnd = nullptr;
        throw_last_error();
    }
    ++table.of(type).use_count;
}

void window::create_window(DWORD ex_style, const wchar_t* title, DWORD style, HWND parent, HMENU menu) {
    create_window(ex_style, title, style, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parent,
                  menu);
}

void window::create_window(const wchar_t* title, DWORD style, HWND parent, HMENU menu) {
    create_window(0, title, style, parent, menu);
}

void window::destroy_window() {
    if (!hwnd) return;
    DestroyWindow(hwnd);
    window_class_table::instance().give_back(typeid(*this));
    hwnd = nullptr;
}

void window::show_window(int command) {
    ShowWindow(hwnd, command);
}

LRESULT CALLBACK window::WndProc(HWND handle, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        auto* const created =
            static_cast<window*>(reinterpret_cast<const CREATESTRUCTW*>(lparam)->lpCreateParams);
        created->hwnd = handle;
        SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* const target = reinterpret_cast<window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (!target) return DefWindowProcW(handle, message, wparam, lparam);
    MSG received{};
    received.hwnd = handle;
    received.message = message;
    received.wParam = wparam;
    received.lParam = lparam;
    std::optional<long> result = target->on_window_message(received);
    if (message == WM_NCDESTROY) {
        target->on_final_message();  // the object may be gone behind this
        result.reset();
    }
    return result ? *result : DefWindowProcW(handle, message, wparam, lparam);
}

window::paint_context::paint_context(window* owner) : painted(owner->get_window_handle()) {
    BeginPaint(painted, &paint);
}

window::paint_context::~paint_context() {
    EndPaint(painted, &paint);
}

}  // namespace win32
