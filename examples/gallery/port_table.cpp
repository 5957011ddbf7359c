#include "port_table.h"

#include "ports.h"

#include <algorithm>
#include <set>
#include <string>

namespace gallery {
namespace {

using d2d::ui::ILabelTable;

constexpr std::size_t most_names = 3;  // that the line has room for

// Below 0, 0 or above 0, as a reader looks words up: letters with marks stand beside those without.
[[nodiscard]] int compare(std::wstring_view a, std::wstring_view b) {
    return CompareStringEx(LOCALE_NAME_INVARIANT, 0, a.data(), static_cast<int>(a.size()), b.data(),
                           static_cast<int>(b.size()), nullptr, nullptr, 0) -
           CSTR_EQUAL;
}

// The same of the values of a column.
[[nodiscard]] int compare(const port& a, const port& b, std::size_t column) {
    switch (column) {
        case 0:
            return compare(a.name, b.name);
        case 1:
            return compare(a.country, b.country);
        case 2:
            return compare(a.water, b.water);
        case 3:
            return a.berths - b.berths;
        case 4:
            return a.depth - b.depth;
        default:
            return a.ships - b.ships;
    }
}

[[nodiscard]] std::wstring count_of(std::wstring_view port::*word) {
    std::set<std::wstring_view> different;
    for (const port& each : all_ports()) different.insert(each.*word);
    return std::to_wstring(different.size());
}

}  // namespace

port_table::port_table(const look& colours) : style(colours) {
    table->begin_update();
    add_headings();
    add_ports();
    add_sums();
    table->end_update();
    listen();
    sort_by(0);
    tell_selected();
}

void port_table::add_headings() {
    static constexpr std::array<std::wstring_view, columns> names{L"Harbour", L"Country",    L"Water",
                                                                  L"Berths",  L"Depth in m", L"Ships a day"};
    for (std::size_t i = 0; i < columns; ++i) headings[i] = make_label(names[i], style.strong);
    table->add_row(0, 0, ILabelTable::header,
                   {headings[0].get(), headings[1].get(), headings[2].get(), headings[3].get(),
                    headings[4].get(), headings[5].get()});
}

void port_table::add_ports() {
    int number = 0;
    for (const port& each : all_ports()) {
        const auto text = [this](std::wstring_view words) { return make_label(words, style.body); };
        const auto count = [&](int value) { return text(std::to_wstring(value)); };
        table->add_row(number, number, ILabelTable::body,
                       {text(each.name).get(), text(each.country).get(), text(each.water).get(),
                        count(each.berths).get(), count(each.depth).get(), count(each.ships).get()});
        ++number;
    }
}

void port_table::add_sums() {
    int berths = 0;
    int deepest = 0;
    int ships = 0;
    for (const port& each : all_ports()) {
        berths += each.berths;
        deepest = std::max(deepest, each.depth);
        ships += each.ships;
    }
    const auto text = [this](const std::wstring& words) {
        return make_label(words, style.body, style.accent);
    };
    table->add_row(0, 0, ILabelTable::footer,
                   {text(std::to_wstring(all_ports().size()) + L" harbours").get(),
                    text(count_of(&port::country) + L" countries").get(),
                    text(count_of(&port::water) + L" waters").get(), text(std::to_wstring(berths)).get(),
                    text(L"up to " + std::to_wstring(deepest)).get(), text(std::to_wstring(ships)).get()});
}

// The table tells that the heading is clicked, not where: the press came by here.
void port_table::listen() {
    table->get_node()->add_mouse_handler(
        [this](d2d::scene::INode*, int, const d2d::input::mouse::event& event) {
            if (event.type == d2d::input::mouse::event_type::button_down) pressed = event.position;
            return false;
        });
    table->set_on_header_click([this](ILabelTable::row_key) { sort_by(column_at(pressed)); });
}

std::size_t port_table::column_at(D2D_POINT_2F point) const {
    std::size_t found = 0;
    for (std::size_t i = 0; i < columns; ++i) {
        D2D_POINT_2F there = point;
        const auto heading = headings[i]->get_node();
        d2d::scene::map_points(table->get_node().get(), heading.get(), &there, 1);
        if (there.x >= headings[i]->get_rect().left) found = i;
    }
    return found;
}

void port_table::sort_by(std::size_t column) {
    descending = column == sorted_by && !descending;
    sorted_by = column;
    for (std::size_t i = 0; i < columns; ++i) headings[i]->set_brush(i == column ? style.accent : style.ink);
    table->begin_update();
    table->set_compare([column, down = descending](int a, int b) {
        const auto& all = all_ports();
        const int order = compare(all[static_cast<std::size_t>(a)], all[static_cast<std::size_t>(b)], column);
        return down ? -order : order;
    });
    table->end_update();
}

void port_table::select_several(bool several) {
    if (several) {
        table->enable_multi_select();
    } else {
        table->disable_multi_select();
    }
}

void port_table::tell_selected() {
    const auto keys = table->get_selected_keys();
    std::wstring text = keys.empty() ? L"No row is selected." : L"Selected: ";
    for (std::size_t i = 0; i < std::min(keys.size(), most_names); ++i) {
        if (i > 0) text.append(L", ");
        text.append(all_ports()[static_cast<std::size_t>(keys[i])].name);
    }
    if (keys.size() > most_names)
        text.append(L" and " + std::to_wstring(keys.size() - most_names) + L" more");
    if (text == told) return;
    told = text;
    change_text(*selected, text);
}

}  // namespace gallery
