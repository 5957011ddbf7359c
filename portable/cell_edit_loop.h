#pragma once

#include "portable/IHwndCellEditor.h"
#include "portable/list_view_control_impl.h"

#include <optional>

namespace ui::mossHarbour::list_view_control_impl {

struct cell {
    int row;
    int column;
};

/// The editing of cells of a native list, from one to the next, in a message loop of its own. Whatever the
/// client does in a handler, the loop ends by itself.
class cell_edit_loop {
public:
    cell_edit_loop(HWND edited, com::ptr<facade> asked, IPanel* shown_in) noexcept;
    cell_edit_loop(const cell_edit_loop&) = delete;
    cell_edit_loop& operator=(const cell_edit_loop&) = delete;
    ~cell_edit_loop() = default;

    /// Returns when the user has finished; at once where the first cell cannot be edited.
    void run(cell first);

    /// Ends the editing, within `run`: the list is about to go. Nothing is committed or told any more.
    void abandon();

private:
    struct ending {
        bool commit = true;
        std::optional<MSG> undispatched;
    };

    [[nodiscard]] ending dispatch_messages();
    /// Shows the editor of the cell that it is at. False where there is none.
    bool open();
    /// False when the text was refused: the editor stays.
    bool close(bool commit);
    void go_on(bool backwards);
    [[nodiscard]] cell neighbour(bool backwards) const;
    [[nodiscard]] int row_count() const;
    [[nodiscard]] int column_count() const;

    HWND list;  // null when abandoned
    const com::ptr<facade> description;
    IPanel* const panel;  // lives while the list is there
    com::ptr<IHwndCellEditor> editor;
    cell at{};
};

}  // namespace ui::mossHarbour::list_view_control_impl
