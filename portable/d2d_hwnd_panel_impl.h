#pragma once

#include "d2d/scene/IView.h"
#include "d2d/win32_window_host.h"
#include "portable/basic_hwnd_panel.h"
#include "portable/scene_content.h"

#include <optional>

namespace ui::mossHarbour {

/// A window with a scene of its own.
class d2d_hwnd_panel_impl : public d2d::win32_window_host, public basic_hwnd_panel {
public:
    explicit d2d_hwnd_panel_impl(IServiceProvider* asked_first);

    // IPanel
    com::ptr<ILayout> set_content(com::ptr<ILayout> layout) override;
    // IBasicHwndPanel
    HWND get_window_handle() override { return win32_window_host::get_window_handle(); }
    element_metrics measure() override;
    HWND create_window(DWORD ex_style, const wchar_t* title, DWORD style, HWND parent) override;
    void destroy_window() override { win32_window_host::destroy_window(); }
    /// The scene serves its keys itself.
    bool translate_message(MSG) override { return false; }
    // IModalService
    bool showPopup(popup_details shown) override;
    bool showDialog(dialog_details shown) override;
    // win32::window
    std::optional<long> on_window_message(MSG message) override;

protected:
    ~d2d_hwnd_panel_impl();

private:
    scene_content content;
    const com::ptr<d2d::scene::IView> view = d2d::scene::create_view();
};

}  // namespace ui::mossHarbour
