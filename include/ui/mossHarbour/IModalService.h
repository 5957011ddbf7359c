#pragma once

#include "com/ptr.h"
#include "ui/mossHarbour/IElement.h"
#include "ui/mossHarbour/ILayout.h"

#include <functional>

#include <windows.h>

namespace ui::mossHarbour {

/// Which buttons a dialog has. Every other value counts as `ok`.
enum class dialog_buttons : int { ok = 0, ok_cancel = 1, close = 2, yes_no = 3 };

/// On which side of its anchor a popup stands. Every other value counts as `above`.
enum class popup_side : int { above = 0, left = 1, right = 2, below = 3 };

/// Which edges of a popup and its anchor are in one line. Every other value counts as `near_edges`.
enum class popup_alignment : int { far_edges = -1, centres = 0, near_edges = 1 };

/// Modal dialogs and popups above a window. Both run a message loop of their own, in which handlers are
/// called; what one throws passes on, with the owner enabled and the window gone.
struct IModalService : IUnknown {
    struct dialog_details {
        com::ptr<IElement> content;
        /// Called when the controls are there, ahead of the first show: the time to set texts. May be empty.
        std::function<void()> on_created;
        /// Asked when a button or the frame is to end the dialog, with the result; false keeps it. May be
        /// empty.
        std::function<bool(bool)> on_result;
        const wchar_t* title;
        dialog_buttons buttons;
    };

    struct popup_details {
        com::ptr<ILayout> content;
        std::function<void()> on_created;
        std::function<void(bool)> on_result;
        RECT anchor;  ///< on the screen
        popup_side side;
        popup_alignment align;
    };

    /// Shows a popup until it loses the focus. Always false.
    virtual bool showPopup(popup_details details) = 0;
    /// Shows a dialog until it is ended. True for the first of two buttons, and for "OK" alone. Throws
    /// `std::logic_error` "Dialog layout resulted in an invalid size!" for a content without a proper size.
    virtual bool showDialog(dialog_details details) = 0;
};

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IModalService> : com::extends<> {
    static constexpr GUID id = com::guid("CAAEFBB3-96C2-4F81-8D4E-8CC542E9B802");
};
