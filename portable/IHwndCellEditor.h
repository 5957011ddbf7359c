#pragma once

#include "com/interface_traits.h"

#include <windows.h>

namespace ui::mossHarbour::list_view_control_impl {

/// What edits a cell of a native list, in a window of its own within the list's.
struct IHwndCellEditor : IUnknown {
    /// Shows itself in the rectangle, which is in pixels of the list's client area, and takes the focus.
    virtual void begin_edit(HWND list, RECT cell) = 0;
    /// Goes away.
    virtual void end_edit() = 0;
    /// Hands on what it has. False when that was refused.
    virtual bool commit_edit() = 0;
    virtual bool has_focus() = 0;
};

}  // namespace ui::mossHarbour::list_view_control_impl

template <>
struct com::interface_traits<ui::mossHarbour::list_view_control_impl::IHwndCellEditor> : com::extends<> {
    static constexpr GUID id = com::guid("4D27C93B-0920-410E-85D3-F6CA66F2B460");
};
