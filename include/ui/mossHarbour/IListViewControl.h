#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/IWidget.h"

#include <cstddef>
#include <functional>
#include <vector>

#include <windows.h>

namespace ui::mossHarbour {

/// A table of texts: columns with headers that the user may move, and rows, of which any number is selected.
/// It has no form on the scene.
///
/// Rows and columns go by number from 0; moving a header does not change a column's number. Each row has a
/// number of the client's choice, its data.
///
/// A click on a cell of a selected row edits the cell in place, where the client has given a source of
/// editors. A loop of its own then dispatches the thread's messages: Tab and Shift+Tab take the text and go
/// on to the next and the previous editable cell, Enter and a loss of the focus take the text, Escape does
/// not. Handlers run within that loop, and may remove rows, take the list off its panel, or destroy a window
/// that it is in; where the list goes, the editing ends, and nothing more is told of it.
struct IListViewControl : IWidget {
    /// What edits one cell: from `create_text_editor`.
    struct ICellEditor : IUnknown {};

    /// Inserts a column ahead of the one with number `index`. `width` is a length in pixels or by
    /// `font_percent`.
    virtual void add_column(const wchar_t* text, int index, int width) = 0;
    virtual void remove_column(int index) = 0;
    virtual void set_column_text(int index, const wchar_t* text) = 0;
    /// For each column, by number, the place at which it stands, from 0.
    virtual std::vector<int> get_column_order() = 0;
    /// Takes what `get_column_order` gives: each place once. Throws `std::out_of_range` for a place that is
    /// not there.
    virtual void set_column_order(std::vector<int> places) = 0;
    /// For each column, by number, its width in pixels.
    virtual std::vector<int> get_column_widths() = 0;

    /// Inserts a row ahead of the one with number `index`, and returns its number, which is its data, too,
    /// until `set_row_data`. `texts` are those of the first `count` columns, at least one; null for a row
    /// that is filled in by `set_cell_text`.
    virtual int add_row(const wchar_t** texts, std::size_t count, int index) = 0;
    virtual void remove_row(int row) = 0;
    virtual void set_cell_text(int row, int column, const wchar_t* text) = 0;
    virtual void set_row_data(int row, LPARAM data) = 0;
    virtual LPARAM get_row_data(int row) = 0;
    /// Calls `asked` for the selected rows from the top until it returns true. Whether it has.
    virtual bool any_selected_row(std::function<bool(const int&)> asked) = 0;
    /// Sorts by the rows' data: `compare` gives a negative number where the first belongs ahead of the
    /// second, a positive one where it belongs behind, else zero. What it throws passes on; the order of the
    /// rows is any one then.
    virtual void sort_rows(std::function<int(LPARAM, LPARAM)> compare) = 0;

    /// Called for a click with the row, -1 beside the rows, and zero.
    virtual void set_on_row_click(std::function<void(IPanel*, int row, int zero)> handler) = 0;
    /// Asked for what edits a cell: null where it cannot be edited.
    virtual void set_cell_editor_source(std::function<com::ptr<ICellEditor>(int row, int column)> source) = 0;
    /// Called when a cell's editor has let go of it, except where its text was refused. Both numbers are the
    /// row. `committed` is false for a cell that was left with Escape.
    virtual void set_on_edit_finished(
        std::function<void(IPanel*, int row, int column, bool committed)> handler) = 0;
    /// Called for a click of the right button with the row, -1 beside the rows.
    virtual void set_on_row_right_click(std::function<void(IPanel*, int row)> handler) = 0;
    /// Called for a click on a column's header. Without a handler the click sorts the rows by that column's
    /// texts, ignoring case; rows with the same data all count as the first of them.
    virtual void set_on_column_click(std::function<void(IPanel*, int column)> handler) = 0;
    /// Called for a double click with the row, -1 beside the rows.
    virtual void set_on_row_double_click(std::function<void(IPanel*, int row)> handler) = 0;

    /// A field for a cell's text. `source` writes the text that it starts with, ending with a zero, to a
    /// buffer with room for `capacity` units; `sink` takes what the user has made of it, at most 1023 units,
    /// and returns false to refuse it. Needs nothing on the screen.
    virtual com::ptr<ICellEditor> create_text_editor(
        std::function<void(wchar_t* buffer, std::size_t capacity)> source,
        std::function<bool(const wchar_t*)> sink) = 0;
};

/// A list without columns that is not shown yet.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IListViewControl> create_list_view_control();

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IListViewControl::ICellEditor> : com::extends<> {
    static constexpr GUID id = com::guid("B1331356-1499-4BE9-BC22-732C01FE61B3");
};

template <>
struct com::interface_traits<ui::mossHarbour::IListViewControl> : com::extends<ui::mossHarbour::IWidget> {
    static constexpr GUID id = com::guid("B0C0AAC2-E3FA-4E5A-8408-2FAD887305E2");
};
