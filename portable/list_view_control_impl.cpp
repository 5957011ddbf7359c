#include "portable/list_view_control_impl.h"

#include "com/object.h"
#include "portable/text_editor.h"

#include <utility>

namespace ui::mossHarbour {
namespace list_view_control_impl {

// -- forwarded
// ------------------------------------------------------------------------------------------------

void facade_impl::add_column(const wchar_t* text, int index, int width) {
    live().add_column(text, index, width);
}

void facade_impl::remove_column(int index) {
    live().remove_column(index);
}

void facade_impl::set_column_text(int index, const wchar_t* text) {
    live().set_column_text(index, text);
}

std::vector<int> facade_impl::get_column_order() {
    return live().get_column_order();
}

void facade_impl::set_column_order(std::vector<int> places) {
    live().set_column_order(std::move(places));
}

std::vector<int> facade_impl::get_column_widths() {
    return live().get_column_widths();
}

int facade_impl::add_row(const wchar_t** texts, std::size_t count, int index) {
    return live().add_row(texts, count, index);
}

void facade_impl::remove_row(int row) {
    live().remove_row(row);
}

void facade_impl::set_cell_text(int row, int column, const wchar_t* text) {
    live().set_cell_text(row, column, text);
}

void facade_impl::set_row_data(int row, LPARAM data) {
    live().set_row_data(row, data);
}

LPARAM facade_impl::get_row_data(int row) {
    return live().get_row_data(row);
}

bool facade_impl::any_selected_row(std::function<bool(const int&)> asked) {
    const com::ptr<IUnknown> keep = &live();  // the client may take it away in the call
    return live().any_selected_row(std::move(asked));
}

void facade_impl::sort_rows(std::function<int(LPARAM, LPARAM)> compare) {
    const com::ptr<IUnknown> keep = &live();  // the client may take it away in the call
    live().sort_rows(std::move(compare));
}

// -- handlers
// -------------------------------------------------------------------------------------------------

void facade_impl::set_on_row_click(std::function<void(IPanel*, int, int)> handler) {
    on_row_click.set(std::move(handler));
}

void facade_impl::set_cell_editor_source(std::function<com::ptr<ICellEditor>(int, int)> source) {
    cell_editor_source.set(std::move(source));
}

void facade_impl::set_on_edit_finished(std::function<void(IPanel*, int, int, bool)> handler) {
    on_edit_finished.set(std::move(handler));
}

void facade_impl::set_on_row_right_click(std::function<void(IPanel*, int)> handler) {
    on_row_right_click.set(std::move(handler));
}

void facade_impl::set_on_column_click(std::function<void(IPanel*, int)> handler) {
    on_column_click.set(std::move(handler));
}

void facade_impl::set_on_row_double_click(std::function<void(IPanel*, int)> handler) {
    on_row_double_click.set(std::move(handler));
}

com::ptr<ICellEditor> facade_impl::create_text_editor(std::function<void(wchar_t*, std::size_t)> source,
                                                      std::function<bool(const wchar_t*)> sink) {
    return com::create_object<text_editor>(std::move(source), std::move(sink));
}

// -- what the form tells and asks
// -----------------------------------------------------------------------------

void facade_impl::fire_row_click(IPanel* panel, int row, int zero) {
    on_row_click.call(panel, row, zero);
}

com::ptr<ICellEditor> facade_impl::get_cell_editor(int row, int column) {
    return cell_editor_source.call(row, column);
}

void facade_impl::fire_edit_finished(IPanel* panel, int row, int column, bool committed) {
    on_edit_finished.call(panel, row, column, committed);
}

void facade_impl::fire_row_right_click(IPanel* panel, int row) {
    on_row_right_click.call(panel, row);
}

void facade_impl::fire_column_click(IPanel* panel, int column) {
    if (on_column_click) {
        on_column_click.call(panel, column);
    } else {
        live().sort_by_column(column);
    }
}

void facade_impl::fire_row_double_click(IPanel* panel, int row) {
    on_row_double_click.call(panel, row);
}

}  // namespace list_view_control_impl

com::ptr<IListViewControl> create_list_view_control() {
    return com::create_object<list_view_control_impl::facade_impl>();
}

}  // namespace ui::mossHarbour
