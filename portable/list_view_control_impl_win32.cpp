#include "portable/list_view_control_impl.h"

#include "com/object.h"
#include "portable/cell_edit_loop.h"
#include "portable/length.h"
#include "portable/subclassed_win32_materialization_impl.h"

#include <algorithm>
#include <cwchar>
#include <exception>
#include <map>
#include <numeric>
#include <string>

#include <commctrl.h>
#include <windowsx.h>

namespace ui::mossHarbour::list_view_control_impl {
namespace {

/// Its inverse: the places of columns from the columns at places, and the other way round.
std::vector<int> inverse(const std::vector<int>& permutation) {
    std::vector<int> result(permutation.size());
    for (std::size_t i = 0; i < permutation.size(); ++i) {
        result.at(static_cast<std::size_t>(permutation[i])) = static_cast<int>(i);
    }
    return result;
}

/// A client's comparison on its way through the system, which exceptions must not cross.
struct row_comparison {
    const std::function<int(LPARAM, LPARAM)>& compare;
    std::exception_ptr failure;

    static int CALLBACK call(LPARAM first, LPARAM second, LPARAM comparison) noexcept {
        auto& self = *reinterpret_cast<row_comparison*>(comparison);
        if (self.failure) return 0;
        try {
            return self.compare(first, second);
        } catch (...) {
            self.failure = std::current_exception();
            return 0;
        }
    }
};

class win32_materialization
    : public subclassed_win32_materialization_impl<win32_materialization, facade, materialization> {
public:
    [[nodiscard]] static window_kind kind() noexcept {
        const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
        InitCommonControlsEx(&classes);  // until then there is no such class
        constexpr DWORD style =
            WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS;
        return {WC_LISTVIEWW, style, WS_EX_CLIENTEDGE};
    }

    void connect() noexcept {
        subclassed_win32_materialization_impl::connect();
        edit_loop = nullptr;
        column_count = 0;
        send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_HEADERDRAGDROP | LVS_EX_FULLROWSELECT);
    }
    void disconnect() {
        subclassed_win32_materialization_impl::disconnect();
        if (edit_loop) edit_loop->abandon();
    }

    // IHwndWidget
    std::optional<LRESULT> on_notify(NMHDR* notification) override;

    // materialization
    void add_column(const wchar_t* text, int index, int width) override;
    void remove_column(int index) override;
    void set_column_text(int index, const wchar_t* text) override;
    std::vector<int> get_column_order() override { return inverse(columns_at_places()); }
    void set_column_order(std::vector<int> places) override;
    std::vector<int> get_column_widths() override;
    int add_row(const wchar_t** texts, std::size_t count, int index) override;
    void remove_row(int row) override { send(LVM_DELETEITEM, row); }
    void set_cell_text(int row, int column, const wchar_t* text) override;
    void set_row_data(int row, LPARAM data) override;
    LPARAM get_row_data(int row) override;
    bool any_selected_row(std::function<bool(const int&)> asked) override;
    void sort_rows(std::function<int(LPARAM, LPARAM)> compare) override;
    void sort_by_column(int column) override;

    // IMaterializedElement
    element_metrics measure(measure_context& context) override;

protected:
    ~win32_materialization() = default;

    std::optional<LRESULT> window_proc(HWND, UINT message, WPARAM wparam, LPARAM lparam) override;

private:
    LRESULT send(UINT message, int wparam = 0, LPARAM lparam = 0) const {
        return SendMessageW(window, message, static_cast<WPARAM>(wparam), lparam);
    }
    template <class Structure>
    LRESULT send(UINT message, int wparam, Structure* lparam) const {
        return send(message, wparam, reinterpret_cast<LPARAM>(lparam));
    }

    [[nodiscard]] int row_count() const { return static_cast<int>(send(LVM_GETITEMCOUNT)); }
    [[nodiscard]] std::vector<int> columns_at_places() const;
    /// At most `capacity` units, with the terminator.
    [[nodiscard]] std::wstring cell_text(int row, int column, std::size_t capacity) const;
    [[nodiscard]] bool is_selected(int row) const;
    std::optional<LRESULT> press(POINT point);
    void edit(cell first);

    cell_edit_loop* edit_loop = nullptr;  // while a cell is edited; on that call's stack
    int column_count = 0;
};

// -- columns
// --------------------------------------------------------------------------------------------------

void win32_materialization::add_column(const wchar_t* text, int index, int width) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = const_cast<wchar_t*>(text);
    const auto added = static_cast<int>(send(LVM_INSERTCOLUMNW, index, &column));
    if (added < 0) return;
    ++column_count;
    send(LVM_SETCOLUMNWIDTH, added, decode_length(width) & 0xffff);
}

void win32_materialization::remove_column(int index) {
    if (send(LVM_DELETECOLUMN, index)) --column_count;
}

void win32_materialization::set_column_text(int index, const wchar_t* text) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = const_cast<wchar_t*>(text);
    send(LVM_SETCOLUMNW, index, &column);
}

std::vector<int> win32_materialization::columns_at_places() const {
    std::vector<int> columns(static_cast<std::size_t>(column_count));
    if (column_count > 0) send(LVM_GETCOLUMNORDERARRAY, column_count, columns.data());
    return columns;
}

void win32_materialization::set_column_order(std::vector<int> places) {
    auto columns = inverse(places);
    send(LVM_SETCOLUMNORDERARRAY, static_cast<int>(columns.size()), columns.data());
    InvalidateRect(window, nullptr, TRUE);  // the system moves the headers alone
}

std::vector<int> win32_materialization::get_column_widths() {
    std::vector<int> widths(static_cast<std::size_t>(column_count));
    for (int i = 0; i < column_count; ++i) {
        widths[static_cast<std::size_t>(i)] = static_cast<int>(send(LVM_GETCOLUMNWIDTH, i));
    }
    return widths;
}

// -- rows
// -----------------------------------------------------------------------------------------------------

int win32_materialization::add_row(const wchar_t** texts, std::size_t count, int index) {
    // Kept: what a row shows whose creator has given it no texts is this word.
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = index;
    item.pszText = const_cast<wchar_t*>(texts ? texts[0] : L"fook");
    const auto row = static_cast<int>(send(LVM_INSERTITEMW, 0, &item));
    for (std::size_t i = 1; texts && i < count; ++i) set_cell_text(row, static_cast<int>(i), texts[i]);
    set_row_data(row, row);
    return row;
}

void win32_materialization::set_cell_text(int row, int column, const wchar_t* text) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text);
    send(LVM_SETITEMTEXTW, row, &item);
}

void win32_materialization::set_row_data(int row, LPARAM data) {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    if (!send(LVM_GETITEMW, 0, &item)) return;
    item.lParam = data;
    send(LVM_SETITEMW, 0, &item);
}

LPARAM win32_materialization::get_row_data(int row) {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    send(LVM_GETITEMW, 0, &item);
    return item.lParam;
}

std::wstring win32_materialization::cell_text(int row, int column, std::size_t capacity) const {
    std::wstring text(capacity, L'\0');
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(capacity);
    send(LVM_GETITEMTEXTW, row, &item);
    text.resize(std::wcslen(text.c_str()));
    return text;
}

bool win32_materialization::is_selected(int row) const {
    return (send(LVM_GETITEMSTATE, row, LVIS_SELECTED) & LVIS_SELECTED) != 0;
}

bool win32_materialization::any_selected_row(std::function<bool(const int&)> asked) {
    int row = -1;
    while (window) {  // the client may take it away in the call
        row = static_cast<int>(send(LVM_GETNEXTITEM, row, LVNI_SELECTED));
        if (row < 0) return false;
        if (asked(row)) return true;
    }
    return false;
}

void win32_materialization::sort_rows(std::function<int(LPARAM, LPARAM)> compare) {
    row_comparison comparison{compare, nullptr};
    SendMessageW(window, LVM_SORTITEMS, reinterpret_cast<WPARAM>(&comparison),
                 reinterpret_cast<LPARAM>(&row_comparison::call));
    if (comparison.failure) std::rethrow_exception(comparison.failure);
}

/// Rows are told apart by their data: of rows with the same data all count as the first one.
void win32_materialization::sort_by_column(int column) {
    constexpr std::size_t capacity = 260;
    std::map<LPARAM, std::wstring> texts;  // read ahead: a list that is being sorted tells nothing reliable
    const int rows = row_count();
    for (int i = 0; i < rows; ++i) texts.try_emplace(get_row_data(i), cell_text(i, column, capacity));
    sort_rows([&texts](LPARAM first, LPARAM second) {
        return _wcsicmp(texts[first].c_str(), texts[second].c_str());
    });
}

// -- size
// -----------------------------------------------------------------------------------------------------

/// One line high unless the item of the layout says otherwise.
element_metrics win32_materialization::measure(measure_context& context) {
    constexpr std::size_t capacity = 256;
    const auto widths = get_column_widths();
    const int width = std::accumulate(widths.begin(), widths.end(), 10);
    int height = 24;
    const int rows = row_count();
    for (int i = 0; i < rows; ++i) height += text_size(context, cell_text(i, 0, capacity)).cy + 8;
    element_metrics result = field_metrics(least_field_size(context), {});
    result.preferred_width = std::max(result.min_width, width);
    result.preferred_height = std::max(result.min_height, height);
    return result;
}

// -- what the user does
// ---------------------------------------------------------------------------------------

std::optional<LRESULT> win32_materialization::on_notify(NMHDR* notification) {
    if (notification->hwndFrom != window) return {};  // the header's tell of no row
    switch (notification->code) {
        case NM_CLICK:
            tell([row = reinterpret_cast<const NMITEMACTIVATE*>(notification)->iItem](
                     facade& told, IPanel* in) { told.fire_row_click(in, row, 0); });
            return 0;
        case NM_DBLCLK:
            tell([row = reinterpret_cast<const NMITEMACTIVATE*>(notification)->iItem](
                     facade& told, IPanel* in) { told.fire_row_double_click(in, row); });
            return 0;
        case NM_RCLICK:
            tell([row = reinterpret_cast<const NMITEMACTIVATE*>(notification)->iItem](
                     facade& told, IPanel* in) { told.fire_row_right_click(in, row); });
            return 0;
        case LVN_COLUMNCLICK:
            tell([column = reinterpret_cast<const NMLISTVIEW*>(notification)->iSubItem](
                     facade& told, IPanel* in) { told.fire_column_click(in, column); });
            return 0;
        default:
            return {};
    }
}

std::optional<LRESULT> win32_materialization::window_proc(HWND, UINT message, WPARAM, LPARAM lparam) {
    switch (message) {
        case WM_NOTIFY:
            return on_notify(reinterpret_cast<NMHDR*>(lparam));
        case WM_LBUTTONDOWN:
            return press({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
        case WM_DESTROY:  // with a window that it is in: its widget stays for now
            if (edit_loop) edit_loop->abandon();
            return {};
        default:
            return {};
    }
}

/// The first press selects a row, the next one edits.
std::optional<LRESULT> win32_materialization::press(POINT point) {
    LVHITTESTINFO hit{};
    hit.pt = point;
    if (send(LVM_SUBITEMHITTEST, 0, &hit) < 0) return {};
    if ((hit.flags & LVHT_ONITEMLABEL) == 0) return {};
    if (!is_selected(hit.iItem)) return {};
    if (edit_loop) {
        SetFocus(window);
    } else {
        edit({hit.iItem, hit.iSubItem});
    }
    return 0;
}

void win32_materialization::edit(cell first) {
    struct registration {
        registration(cell_edit_loop*& where, cell_edit_loop& loop) noexcept : slot(where) { slot = &loop; }
        registration(const registration&) = delete;
        registration& operator=(const registration&) = delete;
        ~registration() { slot = nullptr; }

        cell_edit_loop*& slot;
    };
    cell_edit_loop loop(window, description, panel);
    const registration registered(edit_loop, loop);
    loop.run(first);
}

}  // namespace

com::ptr<IHwndWidget> make_win32_widget() {
    return com::create_object<win32_materialization>();
}

}  // namespace ui::mossHarbour::list_view_control_impl
