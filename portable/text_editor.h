#pragma once

#include "com/base_object.h"
#include "portable/IHwndCellEditor.h"
#include "ui/mossHarbour/IListViewControl.h"

#include <functional>

namespace ui::mossHarbour::list_view_control_impl {

/// An edit window over a cell, in a white window that covers the cell.
class text_editor
    : public com::base_object<com::object_base, IListViewControl::ICellEditor, IHwndCellEditor> {
public:
    text_editor(std::function<void(wchar_t*, std::size_t)> source, std::function<bool(const wchar_t*)> sink);

    // IHwndCellEditor
    void begin_edit(HWND list, RECT cell) override;
    void end_edit() override;
    bool commit_edit() override;
    bool has_focus() override;

protected:
    ~text_editor();

private:
    static constexpr int text_capacity = 1024;  // with the terminator

    void create_windows(HWND list, const RECT& cell, const wchar_t* text);
    void place_text(SIZE room) const;

    HWND edit = nullptr;
    HWND container = nullptr;
    const std::function<void(wchar_t*, std::size_t)> text_source;
    const std::function<bool(const wchar_t*)> text_sink;
};

}  // namespace ui::mossHarbour::list_view_control_impl
