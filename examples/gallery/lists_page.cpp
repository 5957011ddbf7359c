#include "lists_page.h"

#include "controls.h"
#include "d2d/ui/ILabelList.h"
#include "frame.h"
#include "port_table.h"
#include "ports.h"

#include <string>

namespace gallery {
namespace {

using label = com::ptr<d2d::ui::ITextLabel>;
using list = com::ptr<d2d::ui::ILabelList>;

constexpr float list_height = 78;

class lists_page : public page {
public:
    explicit lists_page(const look& colours)
        : page(colours, L"Lists", L"Rows of labels, to choose from and to sort.") {
        add_ports();
        add_log();
        add_table();
    }

    // Neither list nor table tell what is selected.
    void update() override {
        tell_port();
        table.tell_selected();
    }

private:
    void add_ports();
    void add_log();
    void add_table();
    void tell_port();
    void enter_in_log(int index);

    list ports = d2d::ui::create_label_list(nullptr);
    frame ports_frame{style, ports};
    label chosen = make_label(L"", style.body, style.faint_ink);
    std::optional<int> told = -1;

    list log = d2d::ui::create_label_list(nullptr);
    frame log_frame{style, log};
    int entries = 0;

    port_table table{style};
};

void lists_page::add_ports() {
    card& sheet = add_card(L"Label list", L"A press selects a row.");
    int number = 0;
    for (const port& each : all_ports())
        ports->insert_item(-1, make_label(each.name, style.body).get(), number++);
    sheet.node()->add_child(ports_frame.node());
    sheet.add_area(list_height, [this](D2D_RECT_F rect) { ports_frame.place(rect); });
    sheet.add_flow().add(chosen, {240, space::usual});
    tell_port();
}

void lists_page::tell_port() {
    const std::optional<int> now = ports->get_selection();
    if (now == told) return;
    told = now;
    if (!now) return change_text(*chosen, L"No harbour is selected.");
    const port& found = all_ports()[static_cast<std::size_t>(*now)];
    std::wstring text(found.name);
    change_text(*chosen, text.append(L", on the ").append(found.water));
}

void lists_page::add_log() {
    card& sheet = add_card(L"One that grows", L"Rows come first, last or in between.");
    sheet.node()->add_child(log_frame.node());
    sheet.add_area(list_height, [this](D2D_RECT_F rect) { log_frame.place(rect); });
    flow& line = sheet.add_flow();
    const auto add = [&](std::wstring_view name, int index) {
        const auto button = make_button(style, name);
        button->set_on_click([this, index](bool) { enter_in_log(index); });
        line.add(button);
    };
    add(L"First", 0);
    add(L"Third", 2);
    add(L"Last", -1);
    const auto clear = make_button(style, L"Clear");
    clear->set_on_click([this](bool) { log->clear(); });
    line.add(clear);
    for (int i = 0; i < 3; ++i) enter_in_log(-1);
}

void lists_page::enter_in_log(int index) {
    const auto& all = all_ports();
    const auto number = static_cast<std::size_t>(++entries);
    std::wstring text = std::to_wstring(number) + L". From ";
    text.append(all[number * 7 % all.size()].name).append(L" to ").append(all[number * 11 % all.size()].name);
    log->insert_item(index, make_label(text, style.body).get(), entries);
}

void lists_page::add_table() {
    card& sheet =
        add_card(L"Label table", L"A click on a heading sorts by its column, another one the other way.");
    sheet.make_wide();
    sheet.node()->add_child(table.node());
    give_rest_to(sheet.add_area(139, [this](D2D_RECT_F rect) { table.place(rect); }));
    const auto several = make_check_box(style, L"Select several, with Control and Shift");
    several->set_on_click([this](bool checked) { table.select_several(checked); });
    sheet.add_flow(space::large).add(several).add(table.status(), {320, space::usual});
}

}  // namespace

std::unique_ptr<page> make_lists_page(const look& style) {
    return std::make_unique<lists_page>(style);
}

}  // namespace gallery
