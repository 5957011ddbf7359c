#include "portable/popup.h"

#include "portable/modal_panel.h"
#include "win32/scope_exit.h"

#include <utility>

namespace ui::mossHarbour {
namespace {

/// On one axis: where the popup stands along a side of its anchor.
LONG aligned(LONG near_edge, LONG far_edge, LONG size, popup_alignment align) noexcept {
    switch (align) {
        case popup_alignment::far_edges:
            return far_edge - size;
        case popup_alignment::centres:
            return (near_edge + far_edge) / 2 - size / 2;
        default:
            return near_edge;
    }
}

}  // namespace

POINT popup_position(const RECT& anchor, SIZE size, popup_side side, popup_alignment align) noexcept {
    const LONG across = aligned(anchor.left, anchor.right, size.cx, align);
    const LONG down = aligned(anchor.top, anchor.bottom, size.cy, align);
    switch (side) {
        case popup_side::left:
            return {anchor.left - size.cx, down};
        case popup_side::right:
            return {anchor.right, down};
        case popup_side::below:
            return {across, anchor.bottom};
        default:
            return {across, anchor.top - size.cy};
    }
}

bool showPopupHwnd(HWND owner, IModalService::popup_details details) {
    return showPopupHwnd(owner, false, std::move(details));
}

bool showPopupHwnd(HWND owner, bool force_scene, IModalService::popup_details details) {
    const auto panel = create_modal_panel(force_scene);
    panel->set_padding(2, 2, 2, 2);
    panel->set_content(details.content);
    const win32::scope_exit taken_out([&] { panel->set_content(nullptr); });
    const HWND window = panel->create_window(0, nullptr, WS_POPUP | WS_BORDER | WS_SYSMENU, owner);
    const win32::scope_exit destroyed([&] { panel->destroy_window(); });
    if (details.on_created) details.on_created();
    panel->measure();
    const SIZE size = preferred_window_size(*panel);
    const POINT place = popup_position(details.anchor, size, details.side, details.align);
    MoveWindow(window, place.x, place.y, size.cx, size.cy, FALSE);
    ShowWindow(window, SW_SHOW);
    MSG message{};
    while (GetAncestor(GetFocus(), GA_ROOT) == window && GetMessageW(&message, nullptr, 0, 0) > 0) {
        dispatch(*panel, message);
    }
    ShowWindow(window, SW_HIDE);
    if (details.on_result) details.on_result(false);
    return false;
}

}  // namespace ui::mossHarbour
