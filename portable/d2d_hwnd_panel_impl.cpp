#include "portable/d2d_hwnd_panel_impl.h"

#include "com/object.h"

#include <utility>

namespace ui::mossHarbour {

d2d_hwnd_panel_impl::d2d_hwnd_panel_impl(IServiceProvider* asked_first) : basic_hwnd_panel(asked_first) {
    set_lower_edge(com::ptr<d2d::IViewLowerEdge>(view.get()));
    view->set_root(content.node());
}

// The nodes may live on in the client's hands.
d2d_hwnd_panel_impl::~d2d_hwnd_panel_impl() {
    view->set_root(nullptr);
    set_lower_edge(nullptr);
}

com::ptr<ILayout> d2d_hwnd_panel_impl::set_content(com::ptr<ILayout> layout) {
    return content.replace(std::move(layout), this);
}

element_metrics d2d_hwnd_panel_impl::measure() {
    return take_sizes(content.measure());
}

HWND d2d_hwnd_panel_impl::create_window(DWORD ex_style, const wchar_t* title, DWORD style, HWND parent) {
    destroy_window();
    win32_window_host::create_window(ex_style, title, style, parent, nullptr);
    return get_window_handle();
}

bool d2d_hwnd_panel_impl::showPopup(popup_details shown) {
    return showPopupHwnd(get_window_handle(), true, std::move(shown));
}

bool d2d_hwnd_panel_impl::showDialog(dialog_details shown) {
    return showDialogHwnd(get_window_handle(), true, std::move(shown));
}

std::optional<long> d2d_hwnd_panel_impl::on_window_message(MSG message) {
    const com::ptr<IUnknown> keep(get_IUnknown());  // handlers may release the panel
    switch (message.message) {
        case WM_CLOSE:
            if (!on_close) break;
            on_close.call();
            return 0;
        case WM_WINDOWPOSCHANGED: {
            const auto result = win32_window_host::on_window_message(message);
            const auto& change = *reinterpret_cast<const WINDOWPOS*>(message.lParam);
            if (content.live() && calls_for_arrangement(message.hwnd, change)) arrange(*content.live());
            return result;
        }
        case WM_GETMINMAXINFO:
            sizes.limit(*reinterpret_cast<MINMAXINFO*>(message.lParam));
            return 0;
        default:
            break;
    }
    return win32_window_host::on_window_message(message);
}

com::ptr<IHwndPanel> create_d2d_hwnd_panel(IServiceProvider* upstream) {
    return com::create_object<d2d_hwnd_panel_impl>(upstream);
}

}  // namespace ui::mossHarbour
