#include "choice.h"

#include "ui/mossHarbour/IStackLayout.h"

#include <utility>

namespace harbour {

namespace portable = ui::mossHarbour;

choice::choice(std::vector<std::wstring> option_texts) : texts(std::move(option_texts)) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto button = portable::create_radio_button_control(i == 0);
        button->set_on_click([all = std::weak_ptr<buttons>(options), i](portable::IPanel*) {
            if (const auto alive = all.lock()) mark(*alive, i);
        });
        options->push_back(button);
    }
}

com::ptr<portable::ILayout> choice::layout() const {
    const auto stack = portable::create_stack_layout(portable::orientation::vertical);
    portable::stack_item_details details;
    details.margin_top = details.margin_bottom = portable::font_percent(25);
    for (const auto& option : *options) stack->add_item(details, option);
    return stack;
}

void choice::mark(const buttons& all, std::size_t marked) {
    for (std::size_t i = 0; i < all.size(); ++i) all[i]->set_checked(i == marked);
}

void choice::show(std::size_t chosen) const {
    for (std::size_t i = 0; i < texts.size(); ++i) (*options)[i]->set_text(texts[i].c_str());
    mark(*options, chosen);
}

std::size_t choice::chosen() const {
    std::size_t i = 0;
    while (i + 1 < options->size() && !(*options)[i]->is_checked()) ++i;
    return i;
}

}  // namespace harbour
