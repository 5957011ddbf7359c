#include "choice.h"

namespace gallery {

void choice::add(com::ptr<d2d::ui::IButton> button) {
    button->set_checked(buttons.empty());
    button->set_on_click([this, which = buttons.size()](bool) { choose(which); });
    buttons.push_back(std::move(button));
}

void choice::choose(std::size_t which) {
    // A click has toggled it already, to unchecked when it was the chosen one.
    buttons.at(which)->set_checked(true);
    if (which == checked) return;
    buttons[checked]->set_checked(false);
    checked = which;
    on_choice(which);
}

}  // namespace gallery
