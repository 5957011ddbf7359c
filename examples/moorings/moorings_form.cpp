#include "moorings_form.h"

#include <vector>

namespace harbour {

using namespace ui::mossHarbour;

namespace {

struct column {
    mooring_field field;
    const wchar_t* caption;
    int width;
};

constexpr column columns[] = {{mooring_field::place, L"Place", font_percent(800)},
                              {mooring_field::ship, L"Ship", font_percent(1000)},
                              {mooring_field::days, L"Days", font_percent(400)}};

mooring_field field_of(int column) {
    return columns[column].field;
}

stack_item_details spaced() {
    stack_item_details details;
    details.margin_left = details.margin_top = details.margin_right = details.margin_bottom =
        font_percent(50);
    return details;
}

com::ptr<IStackLayout> beside_each_other(const std::vector<com::ptr<IElement>>& elements) {
    auto row = create_stack_layout(orientation::horizontal);
    for (const auto& element : elements) {
        auto details = spaced();
        details.min_width = details.preferred_width = details.max_width = font_percent(600);
        row->add_item(details, element);
    }
    return row;
}

}  // namespace

moorings_form::moorings_form() : outer(create_stack_layout(orientation::vertical)) {
    auto large = spaced();  // lists are a line high unless they are told otherwise
    large.min_width = use_preferred;
    large.min_height = font_percent(1000);
    large.max_height = unbounded_extent;
    outer->add_item(large, list);
    outer->add_item({}, beside_each_other({add_button, remove_button}));
    auto wide = spaced();
    wide.max_width = unbounded_extent;  // its text changes
    outer->add_item(wide, line);

    list->set_cell_editor_source([this](int row, int column) { return edit(row, column); });
    list->set_on_edit_finished([this](IPanel*, int, int, bool) { tell_sum(); });
    list->set_on_column_click([this](IPanel*, int column) { sort(field_of(column)); });
    add_button->set_on_click([this](IPanel*) {
        moorings[next_key] = {L"Roads", L"New ship", 1};
        show_row(next_key++);
        tell_sum();
    });
    remove_button->set_on_click([this](IPanel*) { remove_selected(); });
}

void moorings_form::show() {
    for (int i = 0; const auto& each : columns) list->add_column(each.caption, i++, each.width);
    for (const auto& each : moorings) show_row(each.first);
    add_button->set_text(L"Add");
    remove_button->set_text(L"Remove");
    tell_sum();
}

void moorings_form::show_row(LPARAM key) const {
    std::vector<std::wstring> texts;
    for (const auto& each : columns) texts.push_back(text_of(moorings.at(key), each.field));
    std::vector<const wchar_t*> pointers;
    for (const auto& text : texts) pointers.push_back(text.c_str());
    constexpr int behind_the_others = 0xffff;
    const int row = list->add_row(pointers.data(), pointers.size(), behind_the_others);
    list->set_row_data(row, key);
}

void moorings_form::remove_selected() {
    std::vector<int> rows;
    list->any_selected_row([&rows](const int& row) {
        rows.push_back(row);
        return false;
    });
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {  // the others keep their numbers
        moorings.erase(list->get_row_data(*row));
        list->remove_row(*row);
    }
    tell_sum();
}

void moorings_form::sort(mooring_field by) const {
    list->sort_rows([this, by](LPARAM first, LPARAM second) {
        return compare(moorings.at(first), moorings.at(second), by);
    });
}

void moorings_form::tell_sum() const {
    int days = 0;
    for (const auto& [key, each] : moorings) days += each.days;
    const std::wstring sum =
        std::to_wstring(moorings.size()) + L" ships, " + std::to_wstring(days) + L" days";
    line->set_text(sum.c_str());
}

int moorings_form::row_of(LPARAM key) const {
    int row = 0;
    while (list->get_row_data(row) != key) ++row;
    return row;
}

// A header can be clicked while a cell is edited: the row may stand elsewhere by the time its text is taken.
com::ptr<IListViewControl::ICellEditor> moorings_form::edit(int row, int column) {
    const LPARAM key = list->get_row_data(row);
    mooring& edited = moorings.at(key);
    const auto field = field_of(column);
    return list->create_text_editor(
        [&edited, field](wchar_t* buffer, std::size_t capacity) {
            const std::wstring text = text_of(edited, field);
            buffer[text.copy(buffer, capacity - 1)] = L'\0';
        },
        [this, &edited, key, column, field](const wchar_t* text) {
            if (!take_text(edited, field, text)) {
                line->set_text(L"A text is missing, or is no number of days.");
                return false;
            }
            list->set_cell_text(row_of(key), column, text_of(edited, field).c_str());
            return true;
        });
}

}  // namespace harbour
