#pragma once

#include "com/interface_traits.h"

#include <functional>
#include <optional>

#include <windows.h>

namespace d2d {

/// The face of a host towards its native window.
struct IWin32InterfaceLayer : IUnknown {
    /// The window is there; `invalidate` asks it for a repaint of a rectangle in window pixels.
    virtual void attach_hwnd(HWND window, std::function<void(RECT)> invalidate) = 0;
    virtual void detach_hwnd(HWND window) = 0;
    /// A message of the window. Empty: it goes on to the default treatment. A value: it was handled, and this
    /// is the result.
    virtual std::optional<long> on_window_message(MSG message) = 0;
};

}  // namespace d2d

template <>
struct com::interface_traits<d2d::IWin32InterfaceLayer> : com::extends<> {
    static constexpr GUID id = com::guid("1D7B6A53-9E42-4C8F-A6D0-3F2E8B5C7A94");
};
