#include "portable/hwnd_panel_impl.h"

#include "com/object.h"
#include "portable/GDI_measure_context.h"
#include "portable/control_window.h"
#include "portable/panel_class.h"
#include "win32/module.h"

#include <stdexcept>
#include <utility>

namespace ui::mossHarbour {

com::ptr<ILayout> hwnd_panel_impl::set_content(com::ptr<ILayout> layout) {
    if (window) content.hide(window, this);
    auto former = content.replace(std::move(layout));
    if (!window) return former;
    content.show(window, this);
    if (content.live() && IsWindowVisible(window)) {
        static_cast<void>(measure());
        arrange(*content.live());
    }
    return former;
}

element_metrics hwnd_panel_impl::measure() {
    GDI_measure_context context(window);
    return take_sizes(content.live()->measure(context));
}

HWND hwnd_panel_impl::create_window(DWORD ex_style, const wchar_t* title, DWORD style, HWND parent) {
    destroy_window();
    window = CreateWindowExW(ex_style, MAKEINTATOM(panel_class.atom()), title, style | WS_CLIPCHILDREN,
                             CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parent, nullptr,
                             win32::library_module(), nullptr);
    if (!window) throw std::runtime_error("failed to create window!");
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    try {
        content.show(window, this);
    } catch (...) {
        destroy_window();
        throw;
    }
    return window;
}

void hwnd_panel_impl::destroy_window() {
    if (!window) return;
    content.hide(window, this);
    DestroyWindow(window);
    window = nullptr;
}

bool hwnd_panel_impl::translate_message(MSG message) {
    return IsDialogMessageW(window, &message) != FALSE;
}

bool hwnd_panel_impl::showPopup(popup_details shown) {
    return showPopupHwnd(window, std::move(shown));
}

bool hwnd_panel_impl::showDialog(dialog_details shown) {
    return showDialogHwnd(window, std::move(shown));
}

LRESULT CALLBACK hwnd_panel_impl::window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    // Null while the window is created. Handlers may release the panel.
    const com::ptr<hwnd_panel_impl> panel =
        reinterpret_cast<hwnd_panel_impl*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (message) {
        case WM_WINDOWPOSCHANGED: {
            const auto& change = *reinterpret_cast<const WINDOWPOS*>(lparam);
            if (panel && panel->content.live() && calls_for_arrangement(window, change)) {
                panel->arrange(*panel->content.live());
            }
            return 0;
        }
        case WM_CLOSE:
            if (panel) panel->on_close.call();
            return 0;
        case WM_GETMINMAXINFO:
            if (!panel) break;
            panel->sizes.limit(*reinterpret_cast<MINMAXINFO*>(lparam));
            return 0;
        case WM_COMMAND:
        case WM_NOTIFY:
            if (const auto result = route_notification(message, wparam, lparam)) return *result;
            break;
        default:
            break;
    }
    return DefDlgProcW(window, message, wparam, lparam);
}

com::ptr<IHwndPanel> create_win32_hwnd_panel(IServiceProvider* upstream) {
    return com::create_object<hwnd_panel_impl>(upstream);
}

}  // namespace ui::mossHarbour
