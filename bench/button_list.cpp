#include "button_list.h"

#include "d2d/ui/ITextLabel.h"

namespace bench {

void add_buttons(button_list& list, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const float left = static_cast<float>(i % 10) * 100;
        const float top = static_cast<float>(i / 10) * 30;
        const auto label = d2d::ui::create_text_label("Tides of today", nullptr, nullptr);
        list.buttons.push_back(
            d2d::ui::create_push_button(label.get(), {left, top, left + 96, top + 26}, true, nullptr));
        list.parent->add_child(list.buttons.back()->get_node());
    }
}

button_list make_buttons(std::size_t count) {
    button_list list{d2d::scene::create_node(), {}};
    list.buttons.reserve(count);
    add_buttons(list, count);
    return list;
}

}  // namespace bench
