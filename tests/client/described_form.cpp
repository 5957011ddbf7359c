#include "described_form.h"

#include <array>
#include <utility>

namespace client_test {

using namespace ui::mossHarbour;

namespace {

stack_item_details of_size(SIZE size) {
    stack_item_details details;
    details.min_width = details.preferred_width = details.max_width = size.cx;
    details.min_height = details.preferred_height = details.max_height = size.cy;
    return details;
}

}  // namespace

described_form::described_form(panel_check told)
    : label(create_label_control()),
      edit(create_edit_control()),
      box(create_check_box_control()),
      first(create_radio_button_control(true)),
      second(create_radio_button_control(false)),
      button(create_push_button_control()),
      group(create_group_box_control()),
      inner(create_check_box_control()),
      check(std::move(told)) {
    edit->set_on_changed([this](IPanel* in) { note(in, "changed"); });
    box->set_on_toggled([this](IPanel* in, bool on) { note(in, on ? "box on" : "box off"); });
    inner->set_on_toggled([this](IPanel* in, bool on) { note(in, on ? "inner on" : "inner off"); });
    button->set_on_click([this](IPanel* in) { note(in, "button"); });
    // One of two: native radio buttons know it themselves, those of the scene are told.
    first->set_on_click([this](IPanel* in) {
        second->set_checked(false);
        note(in, "first");
    });
    second->set_on_click([this](IPanel* in) {
        first->set_checked(false);
        note(in, "second");
    });
    const auto within = create_stack_layout(orientation::vertical);
    within->add_item(of_size(row), inner);
    group->set_padding(3, 5, 3, 3);  // with no caption both forms place the content alike
    group->set_content(within);
}

com::ptr<ILayout> described_form::layout() const {
    const auto stack = create_stack_layout(orientation::vertical);
    const std::array<com::ptr<IElement>, 6> rows{label, edit, box, first, second, button};
    for (const auto& element : rows) stack->add_item(of_size(row), element);
    stack->add_item(of_size(group_row), group);
    return stack;
}

void described_form::set_texts() const {
    label->set_text(L"Label");
    box->set_text(L"Box");
    first->set_text(L"First");
    second->set_text(L"Second");
    button->set_text(L"Button");
    inner->set_text(L"Inner");
}

std::wstring described_form::edited() const {
    std::array<wchar_t, 64> text{};
    edit->get_text(text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::string described_form::marks() const {
    std::string result;
    for (const bool mark :
         {box->is_checked(), inner->is_checked(), first->is_checked(), second->is_checked()}) {
        result += mark ? 'x' : '-';
    }
    return result;
}

void described_form::note(IPanel* in, std::string event) {
    check(in);
    events.push_back(std::move(event));
}

}  // namespace client_test
