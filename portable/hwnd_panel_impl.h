#pragma once

#include "com/base_object.h"
#include "portable/native_content.h"
#include "portable/panel_sizes.h"
#include "scene/handler_slot.h"
#include "ui/mossHarbour/IFileSelectionService.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IModalService.h"

#include <functional>

namespace ui::mossHarbour {

/// A window with native controls.
class hwnd_panel_impl
    : public com::base_object<com::object_base, IHwndPanel, IModalService, IFileSelectionService> {
public:
    explicit hwnd_panel_impl(IServiceProvider* asked_first) noexcept : upstream(asked_first) {}

    /// The window knows the panel's address.
    void final_release() { destroy_window(); }

    // IServiceProvider
    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& iid, void** result) override;
    // IPanel
    com::ptr<ILayout> set_content(com::ptr<ILayout> layout) override;
    // IBasicHwndPanel
    HWND get_window_handle() override { return window; }
    element_metrics measure() override;
    HWND create_window(DWORD ex_style, const wchar_t* title, DWORD style, HWND parent) override;
    void destroy_window() override;
    bool translate_message(MSG message) override;
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

    /// Of all windows of the class `panel_class`.
    static LRESULT CALLBACK window_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

protected:
    ~hwnd_panel_impl() = default;

private:
    void arrange_content();

    HWND window = nullptr;
    native_content content;
    panel_sizes sizes;
    d2d::scene::handler_slot<std::function<void()>> on_close;
    const com::ptr<IServiceProvider> upstream;
};

}  // namespace ui::mossHarbour
