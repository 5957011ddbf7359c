#pragma once

#include "portable/basic_hwnd_panel.h"
#include "portable/native_content.h"

namespace ui::mossHarbour {

/// A window with native controls.
class hwnd_panel_impl : public basic_hwnd_panel {
public:
    explicit hwnd_panel_impl(IServiceProvider* asked_first) noexcept : basic_hwnd_panel(asked_first) {}

    /// The window knows the panel's address.
    void final_release() { destroy_window(); }

    // IPanel
    com::ptr<ILayout> set_content(com::ptr<ILayout> layout) override;
    // IBasicHwndPanel
    HWND get_window_handle() override { return window; }
    element_metrics measure() override;
    HWND create_window(DWORD ex_style, const wchar_t* title, DWORD style, HWND parent) override;
    void destroy_window() override;
    bool translate_message(MSG message) override;
    // IModalService
    bool showPopup(popup_details shown) override;
    bool showDialog(dialog_details shown) override;

    /// Of all windows of the class `panel_class`.
    static LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

protected:
    ~hwnd_panel_impl() = default;

private:
    HWND window = nullptr;
    native_content content;
};

}  // namespace ui::mossHarbour
