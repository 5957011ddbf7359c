#pragma once

#include "portable/hwnd_materialization_impl.h"

namespace ui::mossHarbour {

/// Base of the native forms that see their window's messages first. A `Derived` that hides `connect` or
/// `disconnect` calls these.
template <class Derived, class Facade, class Materialization>
class subclassed_win32_materialization_impl
    : public hwnd_materialization_impl<Derived, Facade, Materialization> {
public:
    void connect() noexcept {
        former_procedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(this->window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
    }
    void disconnect() noexcept {
        if (!former_procedure) return;
        SetWindowLongPtrW(this->window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former_procedure));
        former_procedure = nullptr;
    }

protected:
    subclassed_win32_materialization_impl() = default;
    ~subclassed_win32_materialization_impl() { disconnect(); }

    /// A message of the window. Empty: it goes on to the window's own procedure.
    virtual std::optional<LRESULT> window_proc(HWND window, UINT message, WPARAM wparam, LPARAM lparam) = 0;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
        auto* const widget = reinterpret_cast<IHwndWidget*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (!widget) return DefWindowProcW(window, message, wparam, lparam);
        auto* const self = static_cast<subclassed_win32_materialization_impl*>(widget);
        const com::ptr<IHwndWidget> keep = widget;  // the client may take it away in a handler
        const WNDPROC former = self->former_procedure;
        const auto result = self->window_proc(window, message, wparam, lparam);
        return result ? *result : CallWindowProcW(former, window, message, wparam, lparam);
    }

    WNDPROC former_procedure = nullptr;
};

}  // namespace ui::mossHarbour
