#include "portable/cell_edit_loop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <commctrl.h>

namespace ui::mossHarbour::list_view_control_impl {
namespace {

void dispatch(const MSG& message) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace

cell_edit_loop::cell_edit_loop(HWND edited, com::ptr<facade> asked, IPanel* shown_in) noexcept
    : list(edited), description(std::move(asked)), panel(shown_in) {}

void cell_edit_loop::run(cell first) {
    at = first;
    if (!open()) return;
    const ending left = dispatch_messages();
    const bool quits = left.undispatched && left.undispatched->message == WM_QUIT;
    if (quits) PostQuitMessage(static_cast<int>(left.undispatched->wParam));
    if (editor) close(left.commit);
    editor.reset();  // what refused to be closed goes
    if (left.undispatched && !quits) dispatch(*left.undispatched);
}

void cell_edit_loop::abandon() {
    list = nullptr;
    if (const auto shown = std::exchange(editor, nullptr)) shown->end_edit();
}

cell_edit_loop::ending cell_edit_loop::dispatch_messages() {
    while (editor) {
        MSG message{};
        if (GetMessageW(&message, nullptr, 0, 0) == 0) return {true, message};
        // Something else of this thread may be under the mouse: it gets what was meant for it.
        if (!editor->has_focus()) return {true, message};
        const WPARAM key = message.message == WM_KEYDOWN ? message.wParam : 0;
        if (key == VK_RETURN) return {true, {}};
        if (key == VK_ESCAPE) return {false, {}};
        if (key == VK_TAB) {
            go_on(GetKeyState(VK_SHIFT) < 0);
        } else {
            dispatch(message);
        }
    }
    return {};
}

bool cell_edit_loop::open() {
    if (!description) throw std::logic_error("illegal state");
    const com::ptr<IHwndCellEditor> opened = description->get_cell_editor(at.row, at.column);
    if (!opened || !list) return false;
    RECT area{LVIR_LABEL, at.column, 0, 0};
    SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(at.row), reinterpret_cast<LPARAM>(&area));
    if (at.column == 0) area.left -= 4;
    editor = opened;
    opened->begin_edit(list, area);
    return static_cast<bool>(editor);
}

bool cell_edit_loop::close(bool commit) {
    const auto closed = editor;
    const com::ptr<IPanel> shown_in = panel;  // the client may drop it in the calls
    if (commit && !closed->commit_edit()) return false;
    // Kept: the column is not told. Clients take the second number for the row as well.
    if (list) description->fire_edit_finished(panel, at.row, at.row, commit);
    if (list) closed->end_edit();
    editor.reset();
    return true;
}

/// To the next cell that can be edited; all the way round, if need be, and no further.
void cell_edit_loop::go_on(bool backwards) {
    if (!close(true)) return;
    for (int cells = row_count() * column_count(); cells > 0 && list; --cells) {
        at = neighbour(backwards);
        if (open()) return;
    }
}

cell cell_edit_loop::neighbour(bool backwards) const {
    const int rows = row_count();
    const int columns = column_count();
    cell next = at;
    if (backwards) {
        if (--next.column < 0) {
            next.column = columns - 1;
            if (--next.row < 0) next.row = rows - 1;
        }
    } else if (++next.column >= columns) {
        next.column = 0;
        if (++next.row >= rows) next.row = 0;
    }
    return {std::min(next.row, rows - 1), next.column};  // rows may have gone
}

int cell_edit_loop::row_count() const {
    return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}

int cell_edit_loop::column_count() const {
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    int count = 0;
    while (SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(&column)))
        ++count;
    return count;
}

}  // namespace ui::mossHarbour::list_view_control_impl
