#pragma once

#include "portable/IHwndWidget.h"
#include "portable/basic_facade.h"
#include "scene/handler_slot.h"
#include "ui/mossHarbour/IListViewControl.h"

#include <functional>
#include <vector>

namespace ui::mossHarbour::list_view_control_impl {

using ICellEditor = IListViewControl::ICellEditor;

/// What the form on the screen tells and asks the facade.
struct facade : IUnknown {
    virtual void fire_row_click(IPanel* panel, int row, int zero) = 0;
    /// Null where the cell cannot be edited.
    virtual com::ptr<ICellEditor> get_cell_editor(int row, int column) = 0;
    virtual void fire_edit_finished(IPanel* panel, int row, int column, bool committed) = 0;
    virtual void fire_row_right_click(IPanel* panel, int row) = 0;
    virtual void fire_column_click(IPanel* panel, int column) = 0;
    virtual void fire_row_double_click(IPanel* panel, int row) = 0;
};

/// What the facade asks of the form on the screen.
struct materialization : IMaterializedElement {
    virtual void add_column(const wchar_t* text, int index, int width) = 0;
    virtual void remove_column(int index) = 0;
    virtual void set_column_text(int index, const wchar_t* text) = 0;
    virtual std::vector<int> get_column_order() = 0;
    virtual void set_column_order(std::vector<int> places) = 0;
    virtual std::vector<int> get_column_widths() = 0;
    virtual int add_row(const wchar_t** texts, std::size_t count, int index) = 0;
    virtual void remove_row(int row) = 0;
    virtual void set_cell_text(int row, int column, const wchar_t* text) = 0;
    virtual void set_row_data(int row, LPARAM data) = 0;
    virtual LPARAM get_row_data(int row) = 0;
    virtual bool any_selected_row(std::function<bool(const int&)> asked) = 0;
    virtual void sort_rows(std::function<int(LPARAM, LPARAM)> compare) = 0;
    /// By the texts of the column, ignoring case.
    virtual void sort_by_column(int column) = 0;
};

}  // namespace ui::mossHarbour::list_view_control_impl

template <>
struct com::interface_traits<ui::mossHarbour::list_view_control_impl::facade> : com::extends<> {
    static constexpr GUID id = com::guid("6EF5D34D-4A79-46CC-B788-3803D0A4812B");
};

template <>
struct com::interface_traits<ui::mossHarbour::list_view_control_impl::materialization>
    : com::extends<ui::mossHarbour::IMaterializedElement> {
    static constexpr GUID id = com::guid("A43B38B2-EA04-4853-8F47-D823CC1254B2");
};

namespace ui::mossHarbour::list_view_control_impl {

class facade_impl : public basic_facade<facade_impl, IListViewControl, facade, materialization> {
public:
    // IListViewControl
    void add_column(const wchar_t* text, int index, int width) override;
    void remove_column(int index) override;
    void set_column_text(int index, const wchar_t* text) override;
    std::vector<int> get_column_order() override;
    void set_column_order(std::vector<int> places) override;
    std::vector<int> get_column_widths() override;
    int add_row(const wchar_t** texts, std::size_t count, int index) override;
    void remove_row(int row) override;
    void set_cell_text(int row, int column, const wchar_t* text) override;
    void set_row_data(int row, LPARAM data) override;
    LPARAM get_row_data(int row) override;
    bool any_selected_row(std::function<bool(const int&)> asked) override;
    void sort_rows(std::function<int(LPARAM, LPARAM)> compare) override;
    void set_on_row_click(std::function<void(IPanel*, int, int)> handler) override;
    void set_cell_editor_source(std::function<com::ptr<ICellEditor>(int, int)> source) override;
    void set_on_edit_finished(std::function<void(IPanel*, int, int, bool)> handler) override;
    void set_on_row_right_click(std::function<void(IPanel*, int)> handler) override;
    void set_on_column_click(std::function<void(IPanel*, int)> handler) override;
    void set_on_row_double_click(std::function<void(IPanel*, int)> handler) override;
    com::ptr<ICellEditor> create_text_editor(std::function<void(wchar_t*, std::size_t)> source,
                                             std::function<bool(const wchar_t*)> sink) override;
    // facade
    void fire_row_click(IPanel* panel, int row, int zero) override;
    com::ptr<ICellEditor> get_cell_editor(int row, int column) override;
    void fire_edit_finished(IPanel* panel, int row, int column, bool committed) override;
    void fire_row_right_click(IPanel* panel, int row) override;
    void fire_column_click(IPanel* panel, int column) override;
    void fire_row_double_click(IPanel* panel, int row) override;

protected:
    ~facade_impl() = default;

private:
    d2d::scene::handler_slot<std::function<void(IPanel*, int, int)>> on_row_click;
    d2d::scene::handler_slot<std::function<com::ptr<ICellEditor>(int, int)>> cell_editor_source;
    d2d::scene::handler_slot<std::function<void(IPanel*, int, int, bool)>> on_edit_finished;
    d2d::scene::handler_slot<std::function<void(IPanel*, int)>> on_row_right_click;
    d2d::scene::handler_slot<std::function<void(IPanel*, int)>> on_column_click;
    d2d::scene::handler_slot<std::function<void(IPanel*, int)>> on_row_double_click;
};

/// The native form: there is no other.
[[nodiscard]] com::ptr<IHwndWidget> make_win32_widget();

}  // namespace ui::mossHarbour::list_view_control_impl
