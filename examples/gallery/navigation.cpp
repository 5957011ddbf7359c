#include "navigation.h"

#include "captioned_icon.h"
#include "pages.h"

namespace gallery {
namespace {

constexpr float button_height = 36;
constexpr float margin = 20;  // more than a scroll bar

}  // namespace

navigation::navigation(const look& style, const sketch::node& parent, std::function<void(std::size_t)> chosen)
    : pages(std::move(chosen)), area_place(parent, area) {
    float y = space::large;
    for (const page_entry& each : all_pages()) {
        const auto label = com::create_object<captioned_icon>(
            each.icon, each.name, style.body, D2D_SIZE_F{width - 2 * margin - space::large, space::large});
        const auto button = make_button(label.get(), press::latches);
        button->arrange({margin, y, width - margin, y + button_height});
        column->add_child(button->get_node());
        pages.add(button);
        y += button_height + space::small;
    }
    area->set_content_bounds({0, 0, width - margin, y - space::small + space::large});
    area->add_content(column);
}

void navigation::place(D2D_RECT_F rect) {
    area_place.place(rect);
}

void navigation::step(int places) {
    const int count = static_cast<int>(pages.size());
    const int now = static_cast<int>(pages.chosen());
    pages.choose(static_cast<std::size_t>((now + places % count + count) % count));
}

}  // namespace gallery
