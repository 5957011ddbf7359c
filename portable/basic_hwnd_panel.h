#pragma once

#include "com/base_object.h"
#include "portable/panel_sizes.h"
#include "scene/handler_slot.h"
#include "ui/mossHarbour/IFileSelectionService.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IMaterializedElement.h"
#include "ui/mossHarbour/IModalService.h"

#include <functional>

namespace ui::mossHarbour {

/// What panels with a window have in common, whatever their controls are.
class basic_hwnd_panel
    : public com::base_object<com::object_base, IHwndPanel, IModalService, IFileSelectionService> {
public:
    // IServiceProvider
    HRESULT STDMETHODCALLTYPE QueryService(const GUID& service, const GUID& iid, void** result) override;
    // IHwndPanel
    void set_padding(int left, int top, int right, int bottom) override {
        sizes.set_padding({left, top, right, bottom});
    }
    window_sizes get_window_sizes() override { return sizes.window(); }
    void set_on_close(std::function<void()> handler) override { on_close.set(std::move(handler)); }
    // IFileSelectionService
    std::filesystem::path selectInputFile(details choice) override;
    std::filesystem::path selectOutputFile(details choice) override;

protected:
    explicit basic_hwnd_panel(IServiceProvider* asked_first) noexcept : upstream(asked_first) {}
    ~basic_hwnd_panel() = default;

    /// Takes what the content measures for the window, and returns it with the panel's margins.
    element_metrics take_sizes(const element_metrics& content);
    /// Places the content in the window.
    void arrange(IMaterializedElement& content);

    panel_sizes sizes;
    d2d::scene::handler_slot<std::function<void()>> on_close;

private:
    const com::ptr<IServiceProvider> upstream;
};

}  // namespace ui::mossHarbour
