#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/IViewLowerEdge.h"
#include "d2d/IWin32InterfaceLayer.h"

#include <d2d1.h>
#include <windows.h>

namespace d2d {

/// Sends the input of a window to a view that is drawn by somebody else: no rendering, and no site for the
/// view. `attach_hwnd` and `detach_hwnd` tell the view when the window has the keyboard focus; the invalidate
/// function is not used.
struct IWin32InputLayer : IWin32InterfaceLayer {
    /// Where the scene's (0, 0) lies in the window, in pixels.
    virtual void set_origin(D2D_POINT_2F origin) = 0;
    /// The cursor where the view has no opinion; null leaves it to the system.
    virtual void set_default_cursor(HCURSOR cursor) = 0;
    /// Attaches a view, which is kept; null for none. Returns the former one. Each is told when the window
    /// has the keyboard focus, and nothing else.
    virtual com::ptr<IViewLowerEdge> set_lower_edge(com::ptr<IViewLowerEdge> edge) = 0;
};

/// An input layer without window and view.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IWin32InputLayer> create_win32_input_layer();

}  // namespace d2d

template <>
struct com::interface_traits<d2d::IWin32InputLayer> : com::extends<d2d::IWin32InterfaceLayer> {
    static constexpr GUID id = com::guid("B0C7F4D9-52A3-4E18-8D6B-7A91E3F5C024");
};
