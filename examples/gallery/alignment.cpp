#include "alignment.h"

#include "icons.h"

#include <string>

namespace gallery {
namespace {

constexpr float button_side = space::line;
constexpr float between = 4;

/// A square with a dot at one of nine places.
[[nodiscard]] std::string icon_of(int column, int row) {
    const auto at = [](int index) { return std::to_string(5 + 5 * index); };
    return "M2 2 h20 v20 h-20 Z M4 4 v16 h16 v-16 Z M" + at(column) + " " + at(row) + " h4 v4 h-4 Z";
}

}  // namespace

alignment::alignment(const look& colours) : style(colours) {
    root->add_child(frame);
    area->add_content(content);
    for (int i = 0; i < 9; ++i) {
        const auto button = make_button(make_icon(icon_of(i % 3, i / 3), space::usual).get(), press::latches);
        root->add_child(button->get_node());
        places.add(button);
        buttons.push_back(button);
    }
    enlarge(false);
    places.choose(4);
}

void alignment::place(D2D_RECT_F rect) {
    root->set_transform(sketch::moved(rect.left, rect.top));
    const float width = rect.right - rect.left;
    const float left = width - 3 * button_side - 2 * between;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const float x = left + static_cast<float>(i % 3) * (button_side + between);
        const float y = static_cast<float>(i / 3) * (button_side + between);
        buttons[i]->arrange({x, y, x + button_side, y + button_side});
    }
    const float right = left - space::usual;
    frame->draw(true)->draw_geometry(sketch::rectangle(0.5f, 0.5f, right - 0.5f, height - 0.5f).get(),
                                     style.edge.get(), 1, nullptr);
    area_place.place({1, 1, right - 1, height - 1});
}

void alignment::enlarge(bool large) {
    const float scale = large ? 6.0f : 1.5f;
    const float side = 32 * scale;
    const auto context = content->draw(true);
    context->fill_geometry(sketch::rectangle(0, 0, side, side).get(), style.tint.get());
    const auto boat =
        d2d::factory::parse_svg_path(icons::boat, {{{scale, 0, 0, scale, 4 * scale, 4 * scale}}});
    context->fill_geometry(boat.get(), style.accent.get());
    area->set_content_bounds({0, 0, side, side});
}

void alignment::align(std::size_t which) {
    area->set_alignment(static_cast<int>(which % 3) - 1, static_cast<int>(which / 3) - 1);
    // Takes effect when the content is placed the next time, which is now.
    const D2D_POINT_2F position = area->get_scroll_position();
    area->set_scroll_position(position.x, position.y);
}

}  // namespace gallery
