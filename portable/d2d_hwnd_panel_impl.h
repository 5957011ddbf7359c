#pragma once

#include "com/base_object.h"
#include "d2d/scene/IView.h"
#include "d2d/win32_window_host.h"
#include "portable/panel_sizes.h"
#include "portable/scene_content.h"
#include "scene/handler_slot.h"
#include "ui/mossHarbour/IFileSelectionService.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IModalService.h"

#include <functional>
#include <optional>

namespace ui::mossHarbour {

/// A window with a scene of its own.
class d2d_hwnd_panel_impl
    : public d2d::win32_window_host,
      public com::base_object<com::object_base, IHwndPanel, IModalService, IFileSelectionService> {
public:
    explicit d2d_hwnd_panel_impl(IServiceProvider* asked_first);

    // IServiceProvider
    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& iid, void** result) override;
    // IPanel
    com::ptr<ILayout> set_content(com::ptr<ILayout> layout) override;
    // IBasicHwndPanel
    HWND get_window_handle() override { return win32_window_host::get_window_handle(); }
    element_metrics measure() override;
    HWND create_window(DWORD ex_style, const wchar_t* title, DWORD style, HWND parent) override;
    void destroy_window() override { win32_window_host::destroy_window(); }
    /// The scene serves its keys itself.
    bool translate_message(MSG) override { return false; }
    // IHwndPanel
    void set_padding(int left, int top, int right, int bottom) override {
        sizes.set_padding({left, top, right, bottom});
    }
    window_sizes get_window_sizes() override { return sizes.window(); }
    void set_on_close(std::function<void()> handler) override { on_close.set(std::move(handler)); }
    // IModalService
    bool showPopup(popup_details shown) override;
    bool showDialog(dialog_details shown) override;
    // IFileSelectionService
    std::filesystem::path selectInputFile(details choice) override;
    std::filesystem::path selectOutputFile(details choice) override;
    // win32::window
    std::optional<long> on_window_message(MSG message) override;

protected:
    ~d2d_hwnd_panel_impl();

private:
    void arrange_content();

    scene_content content;
    const com::ptr<d2d::scene::IView> view = d2d::scene::create_view();
    panel_sizes sizes;
    d2d::scene::handler_slot<std::function<void()>> on_close;
    const com::ptr<IServiceProvider> upstream;
};

}  // namespace ui::mossHarbour
