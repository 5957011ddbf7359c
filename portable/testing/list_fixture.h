#pragma once

#include "portable/testing/native_panel_fixture.h"
#include "ui/mossHarbour/IListViewControl.h"

#include <string>
#include <utility>
#include <vector>

#include <commctrl.h>

namespace ui::mossHarbour {

/// A native panel that shows a list.
class list_fixture : public native_panel_fixture {
protected:
    void SetUp() override {
        native_panel_fixture::SetUp();
        list = create_list_view_control();
    }
    void TearDown() override {
        if (panel) {
            panel->destroy_window();
            panel->set_content(nullptr);
        }
        list.reset();
        native_panel_fixture::TearDown();
    }

    /// Shows the list, as large as its item in the layout makes it.
    void show_list(const stack_item_details& details = {}) {
        const auto content = create_stack_layout(orientation::vertical);
        content->add_item(details, list);
        panel->set_content(content);
        if (!panel->get_window_handle()) create_window();
        window = children_of(panel->get_window_handle()).front();
    }

    void add_columns(std::initializer_list<const wchar_t*> captions, int width = 100) {
        int index = 0;
        for (const wchar_t* const caption : captions) list->add_column(caption, index++, width);
    }
    /// Behind the others.
    int add_row(std::vector<const wchar_t*> texts) {
        return list->add_row(texts.data(), texts.size(), row_count());
    }

    LRESULT ask(UINT message, int wparam = 0, LPARAM lparam = 0) const {
        return SendMessageW(window, message, static_cast<WPARAM>(wparam), lparam);
    }
    [[nodiscard]] int row_count() const { return static_cast<int>(ask(LVM_GETITEMCOUNT)); }
    [[nodiscard]] std::wstring cell_text(int row, int column) const {
        wchar_t text[2048] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = static_cast<int>(std::size(text));
        ask(LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
        return text;
    }
    [[nodiscard]] std::vector<std::wstring> column_texts(int column) const {
        std::vector<std::wstring> texts;
        for (int row = 0; row < row_count(); ++row) texts.push_back(cell_text(row, column));
        return texts;
    }
    [[nodiscard]] std::wstring caption(int column) const {
        wchar_t text[64] = L"";
        LVCOLUMNW asked{};
        asked.mask = LVCF_TEXT;
        asked.pszText = text;
        asked.cchTextMax = static_cast<int>(std::size(text));
        return ask(LVM_GETCOLUMNW, column, reinterpret_cast<LPARAM>(&asked)) ? text : L"(none)";
    }

    void select(int row, bool selected = true) const {
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED;
        item.state = selected ? LVIS_SELECTED : 0u;
        ask(LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
    }
    [[nodiscard]] bool is_selected(int row) const { return ask(LVM_GETITEMSTATE, row, LVIS_SELECTED) != 0; }

    /// The area that the editor of a cell is given, but for what the first column adds to it.
    [[nodiscard]] RECT label_area(int row, int column) const {
        RECT area{LVIR_LABEL, column, 0, 0};
        ask(LVM_GETSUBITEMRECT, row, reinterpret_cast<LPARAM>(&area));
        return area;
    }
    /// A point on the text of a cell.
    [[nodiscard]] POINT point_in(int row, int column) const {
        const RECT area = label_area(row, column);
        return {area.left + 12, (area.top + area.bottom) / 2};
    }
    [[nodiscard]] HWND header() const { return reinterpret_cast<HWND>(ask(LVM_GETHEADER)); }

    com::ptr<IListViewControl> list;
    HWND window = nullptr;  // the list's
};

}  // namespace ui::mossHarbour
