#pragma once

#include "com/api.h"
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
        /// Called when the controls are there, ahead of the first show: the time to set texts. May be empty.
        std::function<void()> on_created;
        /// Called with false when the popup is hidden, while its controls are still there. May be empty.
        std::function<void(bool)> on_result;
        RECT anchor;  ///< on the screen
        popup_side side;
        popup_alignment align;
    };

    /// Shows a popup until it loses the focus. Always false.
    virtual bool showPopup(popup_details details) = 0;
    /// Shows a dialog until it is ended. True for the first of two buttons, and for "OK" alone. Throws
    /// `std::logic_error` "Dialog layout resulted in an invalid size!" where the content does not make for a
    /// window of 1 to 16384 pixels each way.
    virtual bool showDialog(dialog_details details) = 0;
};

/// Shows a modal dialog, centred on the top-level window of `owner`, and returns its result when it is done.
/// `owner` is a window of the calling thread. Its top-level window is disabled meanwhile. Messages are
/// dispatched in a loop of the dialog's own, so that any handler may be called, and may show a further
/// dialog. What a handler throws passes on, with the owner enabled and the dialog gone. `WM_QUIT` ends the
/// dialog with the result as it stands, false without any, and is not posted again. On return the controls
/// are not materialized any more: read them in `on_result`.
///
/// With native controls or on the scene as the user's settings choose: see `create_hwnd_panel`.
MOSSHARBOUR_API bool showDialogHwnd(HWND owner, IModalService::dialog_details details);
/// With `force_scene` on the scene whatever the settings choose.
MOSSHARBOUR_API bool showDialogHwnd(HWND owner, bool force_scene, IModalService::dialog_details details);

/// Shows a popup beside `details.anchor` for as long as it has the keyboard focus, in a loop of its own like
/// that of a dialog. The owner stays enabled. Then `on_result` is called with false, while the popup's
/// window is hidden and its controls are still there. Always false. Throws like `showDialogHwnd`.
MOSSHARBOUR_API bool showPopupHwnd(HWND owner, IModalService::popup_details details);
/// With `force_scene` on the scene whatever the settings choose.
MOSSHARBOUR_API bool showPopupHwnd(HWND owner, bool force_scene, IModalService::popup_details details);

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IModalService> : com::extends<> {
    static constexpr GUID id = com::guid("CAAEFBB3-96C2-4F81-8D4E-8CC542E9B802");
};
