#pragma once

#include "com/api.h"
#include "d2d/ui/ILabel.h"
#include "d2d/ui/IStyle.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

namespace d2d::ui {

/// Rows of labels in aligned columns, in a scroll area. Rows are in three sections, named by a number: header
/// rows (-1) stay above the body, footer rows (1) below it, and both follow it sideways; body rows (0)
/// scroll, can be sorted, and are selected with the mouse. Any other number throws `std::logic_error`
/// "invalid section value specified". An operation on rows that throws changes nothing.
///
/// Put changes between `begin_update` and `end_update`: only the outermost `end_update` lays the table out.
///
///     table->begin_update();
///     table->add_row(0, 0, ILabelTable::header, {name.get(), size.get()});
///     table->add_row(file.size, file.number, ILabelTable::body, {file_name.get(), file_size.get()});
///     table->end_update();
///
/// Indices of rows count within a section, in the order of insertion, whatever the order that is shown.
///
/// Labels and handlers may change the table while they run; of layouts within a layout the innermost counts.
struct ILabelTable : IControl {
    /// What rows are sorted by. The table only hands it to the function that compares.
    using sort_value = std::int32_t;
    /// What the owner knows a row by. The table never reads it.
    using row_key = std::int32_t;
    /// Below 0, 0 or above 0, as the first value goes ahead of the second, beside it or behind it. Called in
    /// each layout.
    using compare_function = std::function<int(sort_value first, sort_value second)>;
    using click_function = std::function<void(row_key key)>;

    static constexpr int header = -1;
    static constexpr int body = 0;
    static constexpr int footer = 1;

    /// A place in the order of the operations: does nothing.
    virtual void reserved1() = 0;
    /// Removes all rows of all sections. The number of columns is open again.
    virtual void clear() = 0;
    /// Removes the rows of the body. Any other section ends the process.
    virtual void clear_section(int section) = 0;
    /// Appends a row, with a label for each column: the first row settles how many there are, and another
    /// number throws `std::logic_error` "Wrong number of values for row". The labels are kept, and their
    /// nodes are shown in the table; a label that is shown elsewhere throws `std::logic_error`.
    virtual void add_row(sort_value value, row_key key, int section,
                         std::initializer_list<ILabel*> labels) = 0;
    /// Inserts a row ahead of the one with an index, or appends it where there is none. Another number of
    /// labels throws `std::logic_error` "not expected".
    virtual void insert_row(unsigned index, int section, sort_value value, row_key key,
                            std::initializer_list<ILabel*> labels) = 0;
    /// Throws `std::logic_error` "invalid row number" when there is none.
    virtual void remove_row(unsigned index, int section) = 0;
    /// A place in the order of the operations: throws `std::logic_error` "not implemented".
    virtual void reserved2() = 0;
    /// Sorts the body from the next layout on. Rows that compare as equal stay in the order of insertion.
    virtual void set_compare(compare_function compare) = 0;
    /// Back to the order of insertion, from the next layout on.
    virtual void clear_compare() = 0;
    /// Replaces the function that is told the key of a header row that is clicked.
    virtual void set_on_header_click(click_function handler) = 0;
    /// The rows of the body.
    [[nodiscard]] virtual unsigned get_row_count() const = 0;
    /// Of the selected row. Throws `std::logic_error` "more than one item selected".
    [[nodiscard]] virtual std::optional<row_key> get_selected_key() const = 0;
    /// Of all selected rows, from the top down.
    [[nodiscard]] virtual std::vector<row_key> get_selected_keys() const = 0;
    /// Of the selected row. Throws `std::logic_error` "more than one item selected".
    [[nodiscard]] virtual std::optional<sort_value> get_selected_value() const = 0;
    /// Of all selected rows, from the top down.
    [[nodiscard]] virtual std::vector<sort_value> get_selected_values() const = 0;
    /// A click selects a row alone; with Control it adds or takes away one; with Shift it selects all rows
    /// from the one last clicked with Control, or first with Shift. With both, or while another button is
    /// held, it changes nothing.
    virtual void enable_multi_select() = 0;
    /// A click selects a row alone, with whatever key: the state at the start. What is selected stays.
    virtual void disable_multi_select() = 0;
    /// Begins a number of changes. Pairs nest.
    virtual void begin_update() = 0;
    /// Ends them: the outermost one measures all labels and lays the table out.
    virtual void end_update() = 0;
};

/// An empty table with an empty rectangle; null takes the default style. Throws `com::error` when the style
/// has no looks for scroll areas.
[[nodiscard]] MOSSHARBOUR_API com::ptr<ILabelTable> create_label_table(IStyle* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ILabelTable> : com::extends<d2d::ui::IControl> {
    static constexpr GUID id = com::guid("D99079C1-1551-4ED0-85B7-C2834298EB1F");
};
