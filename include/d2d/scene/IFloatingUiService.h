#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/scene/INode.h"
#include "ui/mossHarbour/IModalService.h"

#include <windows.h>

namespace d2d::scene {

/// Popups beside nodes, for code on the scene that knows no window. Its identifier as a service is this
/// interface's:
///
///     com::ptr<d2d::scene::IFloatingUiService> floating_ui;
///     com::ptr<IServiceProvider>(node)->QueryService(com::guid_of<d2d::scene::IFloatingUiService>(),
///                                                    com::guid_of<d2d::scene::IFloatingUiService>(),
///                                                    floating_ui.put_void());
struct IFloatingUiService : IUnknown {
    using popup_details = ui::mossHarbour::IModalService::popup_details;

    /// Shows a popup, like `ui::mossHarbour::showPopupHwnd`, at the rectangle on the screen that `anchor` has
    /// just now: where the corners of its bounds, children included, are with all transforms above it,
    /// rounded outward to pixels. What stands in `details.anchor` is not looked at. Always false.
    virtual bool show_popup(INode* anchor, popup_details details) = 0;
};

/// A service for a scene that has its (0, 0) in the corner of `window`'s client area. The window owns the
/// popups; it is borrowed, and has to be there while one is shown. A host is given the service with
/// `install_service`.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IFloatingUiService> create_floating_ui_service(HWND window);

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IFloatingUiService> : com::extends<> {
    static constexpr GUID id = com::guid("7A5D3E90-8C14-4F6B-9B27-D03E61F8A24C");
};
