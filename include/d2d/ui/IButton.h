#pragma once

#include "com/api.h"
#include "d2d/ui/IControl.h"
#include "d2d/ui/ILabel.h"

#include <functional>

namespace d2d::ui {

/// What all buttons can do. A button is enabled while it has a handler, or, from the first `set_enabled` on,
/// as that says. It is pressed with the left mouse button, in a message loop of its own that lasts until the
/// release; the keyboard does not operate it. It is made with a label, which it keeps: the label's node,
/// which must be free, becomes a child of the button's, and the button chooses its brush.
struct IButton : IControl {
    virtual bool is_checked() = 0;
    /// Does nothing on a push button that does not latch. Calls no handler.
    virtual void set_checked(bool checked) = 0;
    virtual void set_enabled(bool enabled) = 0;
    /// Replaces the function that is called behind each click, with the new state. It may release the button,
    /// change it, and throw: what it throws passes through the routing of the mouse event.
    virtual void set_on_click(std::function<void(bool checked)> handler) = 0;
};

/// A radio button in `rect`. A click checks it and unchecks it again: it does not know its neighbours. For a
/// choice of one among several, uncheck the others in `on_click`.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IButton> create_radio_button(ILabel* label, D2D_RECT_F rect,
                                                                    IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IButton> : com::extends<d2d::ui::IControl> {
    static constexpr GUID id = com::guid("D992A518-7B39-49A8-B382-72200C70ED26");
};
