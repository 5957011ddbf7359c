#pragma once

#include "com/api.h"
#include "d2d/ui/IButton.h"

namespace d2d::ui {

/// A button with its label in the middle. `QueryInterface` does not know it as `IButton`: kept, clients tell
/// push buttons from the others by that.
struct IPushButton : IButton {
    /// The distances between the frame and the label: left, top, right, bottom, in pixels; 2, 1, 2, 1 at
    /// first. Takes effect at the next `arrange`.
    virtual void set_margin(D2D_RECT_F margin) = 0;
};

/// A push button in `rect`. One that is `latching` changes between checked and unchecked with each click.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IPushButton> create_push_button(ILabel* label, D2D_RECT_F rect,
                                                                       bool latching, IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IPushButton> : com::extends<d2d::ui::IControl> {
    static constexpr GUID id = com::guid("39882B75-3BD2-42EE-9764-976B28205BA1");
};
