#include "settings_form.h"

namespace harbour {

using namespace ui::mossHarbour;

namespace {

constexpr int gap = font_percent(50);

com::ptr<IGroupBoxControl> framed(const com::ptr<ILayout>& content) {
    auto box = create_group_box_control();
    box->set_padding(gap, gap, gap, gap);
    box->set_content(content);
    return box;
}

stack_item_details spaced(item_alignment alignment = item_alignment::near_side) {
    stack_item_details details(alignment);
    details.margin_left = details.margin_top = details.margin_right = details.margin_bottom = gap;
    return details;
}

/// As wide as there is room.
stack_item_details stretched() {
    auto details = spaced();
    details.max_width = unbounded_extent;
    return details;
}

std::wstring text_of(IEditControl& edit) {
    std::wstring text(256, L'\0');
    edit.get_text(text.data(), static_cast<int>(text.size()));
    text.resize(text.find(L'\0'));
    return text;
}

}  // namespace

settings_form::settings_form()
    : fields{{&values::ship, L"Name of the ship"}, {&values::call_sign, L"Call sign"},
             {&values::home_port, L"Home port"},   {&values::next_port, L"Next port"},
             {&values::pilot, L"Pilot station"},   {&values::greeting, L"Greeting"}},
      options{{&values::lights, L"Light the lamps at dusk"},
              {&values::horn, L"Sound the horn in fog"},
              {&values::log, L"Keep a log"}},
      commands{{&settings_form::on_open, L"Open..."},
               {&settings_form::on_save_as, L"Save as..."},
               {&settings_form::on_ports, L"Ports..."},
               {&settings_form::on_save, L"Save"},
               {&settings_form::on_cancel, L"Cancel"}},
      outer(create_stack_layout(orientation::vertical)) {
    outer->add_item(spaced(), heading);
    outer->add_item(stretched(), make_fields());
    outer->add_item(stretched(), make_groups());
    outer->add_item(spaced(item_alignment::far_side), make_buttons());
}

com::ptr<ILayout> settings_form::make_fields() const {
    const auto grid = create_grid_layout();
    for (int row = 0; const auto& [value, caption, label, edit] : fields) {
        grid_item_details left(item_alignment::centre, item_alignment::near_side);
        left.row = row;
        left.margin_top = left.margin_bottom = font_percent(15);
        left.margin_right = gap;
        grid->add_item(left, label);
        grid_item_details right = left;
        right.margin_right = 0;
        right.column = 1;
        right.min_width = right.preferred_width = font_percent(1600);
        grid->add_item(right, edit);
        ++row;
    }
    return grid;
}

com::ptr<ILayout> settings_form::make_options() const {
    const auto stack = create_stack_layout(orientation::vertical);
    stack_item_details details;
    details.margin_top = details.margin_bottom = font_percent(25);
    for (const auto& each : options) stack->add_item(details, each.box);
    return stack;
}

com::ptr<ILayout> settings_form::make_groups() const {
    const auto row = create_stack_layout(orientation::horizontal);
    for (const auto& content : {make_options(), units.layout(), watch.layout()}) {
        auto details = spaced();
        details.max_width = unbounded_extent;
        details.max_height = unbounded_extent;
        row->add_item(details, framed(content));
    }
    return row;
}

com::ptr<ILayout> settings_form::make_buttons() {
    const auto row = create_stack_layout(orientation::horizontal);
    for (const auto& [handler, caption, button] : commands) {
        auto details = spaced(item_alignment::centre);
        details.min_width = details.preferred_width = details.max_width = font_percent(600);
        details.max_height = use_preferred;
        row->add_item(details, button);
        button->set_on_click([this, chosen = handler](IPanel*) {
            if (this->*chosen) (this->*chosen)();
        });
    }
    return row;
}

void settings_form::show(const values& shown) {
    heading->set_text(L"What the harbour office knows of the ship");
    for (const auto& [value, caption, label, edit] : fields) {
        label->set_text(caption);
        edit->set_text((shown.*value).c_str());
    }
    for (const auto& [value, caption, box] : options) {
        box->set_text(caption);
        box->set_checked(shown.*value);
    }
    units.show(static_cast<std::size_t>(shown.units));
    watch.show(static_cast<std::size_t>(shown.watch));
    for (const auto& [handler, caption, button] : commands) button->set_text(caption);
}

void settings_form::show_next_port(const wchar_t* name) {
    for (const auto& each : fields) {
        if (each.value == &values::next_port) each.edit->set_text(name);
    }
}

values settings_form::read() const {
    values result;
    for (const auto& [value, caption, label, edit] : fields) result.*value = text_of(*edit);
    for (const auto& [value, caption, box] : options) result.*value = box->is_checked();
    result.units = static_cast<unit_system>(units.chosen());
    result.watch = static_cast<watch_length>(watch.chosen());
    return result;
}

}  // namespace harbour
