#pragma once

#include "com/api.h"
#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/element_metrics.h"

#include <functional>

#include <windows.h>

namespace ui::mossHarbour {

/// A panel in a window of its own. Sizes are in pixels.
struct IBasicHwndPanel : IPanel {
    /// Null while there is no window.
    virtual HWND get_window_handle() = 0;
    /// Measures the content, which there has to be, in the window, which there has to be. The window's limits
    /// follow. Margins are the content's, or the padding where it is larger.
    virtual element_metrics measure() = 0;
    /// Creates the window, hidden unless `style` has `WS_VISIBLE`, where the system chooses place and size;
    /// one that is there already is destroyed first. Ahead of the first `measure` it cannot be given a size:
    /// its limits are zero. Throws `std::runtime_error` when it cannot be created; what a materialization
    /// throws passes on, too, and there is no window then.
    virtual HWND create_window(DWORD ex_style, const wchar_t* title, DWORD style, HWND parent) = 0;
    /// Does nothing without a window. Native controls go with it, and come with the next one; on the scene
    /// the content stays.
    virtual void destroy_window() = 0;
    /// For the message loop, ahead of the dispatch: true when the message served the navigation among the
    /// controls.
    virtual bool translate_message(MSG message) = 0;
};

/// What a client gives the window, and reads of it.
struct IHwndPanel : IBasicHwndPanel {
    /// Sizes of the window with its frame, as of the latest `measure`.
    struct window_sizes {
        SIZE preferred;
        SIZE maximum;  ///< `unbounded_extent` where there is no limit
        SIZE minimum;
    };

    /// The least distances between the window's edges and the content: lengths in pixels or by
    /// `font_percent`. Takes effect at the next `measure`.
    virtual void set_padding(int left, int top, int right, int bottom) = 0;
    /// All zero ahead of the first `measure`.
    virtual window_sizes get_window_sizes() = 0;
    /// Called when the user closes the window, which does not close by itself then. May release the panel.
    /// Without a handler a native panel stays, and one on the scene posts `WM_QUIT`.
    virtual void set_on_close(std::function<void()> handler) = 0;
};

/// A panel that shows its content on the scene. `upstream` is kept, and asked first for services; may be
/// null. Content is materialized when it is set; take it out, with `set_content(nullptr)`, when the panel is
/// not needed any more.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IHwndPanel> create_d2d_hwnd_panel(IServiceProvider* upstream);

/// A panel of the kind that the user's settings choose: on the scene where the value "useD2D" of the key
/// "SOFTWARE\Tarnwick\QRD\3.0\mossHarbour.ui", under `HKEY_CURRENT_USER`, was there and not zero as the
/// library was loaded, and otherwise with native controls. `upstream` is kept, and asked first for services;
/// may be null.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IHwndPanel> create_hwnd_panel(IServiceProvider* upstream);

/// A panel that shows its content by native controls. `upstream` is kept, and asked first for services; may
/// be null. Content is materialized while there is a window: set it ahead of `create_window`, or later.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IHwndPanel> create_win32_hwnd_panel(IServiceProvider* upstream);

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IBasicHwndPanel> : com::extends<ui::mossHarbour::IPanel> {
    static constexpr GUID id = com::guid("5E0B7C93-1F64-4A8D-B2E9-36D7A081C54F");
};

template <>
struct com::interface_traits<ui::mossHarbour::IHwndPanel> : com::extends<ui::mossHarbour::IBasicHwndPanel> {
    static constexpr GUID id = com::guid("C21D8F46-70BA-4E35-9A17-E84F5B09D362");
};
