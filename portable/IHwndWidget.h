#pragma once

#include "com/interface_traits.h"
#include "portable/hwnd_materialization_context.h"

#include <optional>

namespace ui::mossHarbour {

/// The form of a control among native windows.
struct IHwndWidget : IUnknown {
    /// Joins the form to its facade and creates its window. What fails leaves nothing behind.
    virtual void materialize(hwnd_materialization_context& context, IUnknown* facade) = 0;
    virtual void dematerialize(hwnd_materialization_context& context, IUnknown* facade) = 0;

    // What the control's window told its parent: the result, or empty for what is not handled here. Handlers
    // are called, which may take the control away; keep a reference for the length of the call.
    virtual std::optional<LRESULT> on_command(WPARAM wparam) = 0;
    virtual std::optional<LRESULT> on_notify(NMHDR* notification) = 0;
};

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IHwndWidget> : com::extends<> {
    static constexpr GUID id = com::guid("F43FA6C3-E2B6-4F9E-82A4-CA96A42AC15B");
};
