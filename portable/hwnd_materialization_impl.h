#pragma once

#include "com/base_object.h"
#include "portable/IHwndWidget.h"
#include "portable/control_window.h"
#include "portable/layout_arithmetic.h"
#include "portable/native_metrics.h"
#include "ui/mossHarbour/IMaterializedElement.h"

namespace ui::mossHarbour {

/// Base of the native forms: one child window. `Derived` has `kind()`, which says what window, and may hide
/// `connect` and `disconnect`, which follow the window's creation and precede its end, and `show_content` and
/// `hide_content`.
template <class Derived, class Facade, class Materialization>
class hwnd_materialization_impl : public com::base_object<com::object_base, IHwndWidget, Materialization> {
public:
    // IHwndWidget
    void materialize(hwnd_materialization_context& context, IUnknown* element) override {
        description = com::ptr<Facade>(element);
        panel = context.get_panel();
        try {
            show(context.get_parent_window());
        } catch (...) {
            forget();
            throw;
        }
    }
    void dematerialize(hwnd_materialization_context&, IUnknown*) override {
        derived()->disconnect();
        derived()->hide_content();
        destroy();
        forget();
    }
    std::optional<LRESULT> on_command(WPARAM) override { return {}; }
    std::optional<LRESULT> on_notify(NMHDR*) override { return {}; }

    // IMaterializedElement
    void arrange(int left, int top, int right, int bottom) override {
        MoveWindow(window, left, top, difference(right, left), difference(bottom, top), TRUE);
    }

protected:
    hwnd_materialization_impl() = default;
    /// A facade that is materialized twice leaves its first form without a word: no window may know what is
    /// gone.
    ~hwnd_materialization_impl() {
        if (window) destroy();
    }

    // Nothing to do for many.
    void connect() {}
    void disconnect() {}
    void show_content() {}
    void hide_content() {}

    /// Calls `call(facade, panel)` for what the user has done. The client may take anything away in it.
    template <class Call>
    void tell(Call call) {
        const auto told = description;
        const com::ptr<IPanel> shown_in = panel;
        if (told) call(*told, shown_in.get());
    }

    HWND window = nullptr;
    IPanel* panel = nullptr;
    com::ptr<Facade> description;

private:
    [[nodiscard]] Derived* derived() noexcept { return static_cast<Derived*>(this); }

    void show(HWND parent) {
        window = create_control_window(derived()->kind(), parent, this);
        try {
            derived()->connect();
            derived()->show_content();
        } catch (...) {
            derived()->disconnect();
            destroy();
            throw;
        }
    }

    void destroy() noexcept {
        destroy_control_window(window);
        window = nullptr;
    }

    void forget() noexcept {
        panel = nullptr;
        description.reset();
    }
};

}  // namespace ui::mossHarbour
