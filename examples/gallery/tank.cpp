#include "tank.h"

#include "common/shapes.h"

#include <string>

namespace gallery {

using d2d::ui::IScrollBar;

namespace {

constexpr float thickness = 12;  // of a bar
constexpr float glass_width = 64;
constexpr float name_width = 44;
constexpr float value_width = 28;

[[nodiscard]] std::wstring text_of(float value) {
    return std::to_wstring(static_cast<int>(value));
}

void put(d2d::ui::ITextLabel& label, float x, float y) {
    const D2D_SIZE_F size = label.measure().preferred_size;
    label.arrange({x, y, x + size.width, y + size.height});
}

}  // namespace

tank::tank(const look& colours)
    : style(colours),
      channels{make_channel(L"Red", 63), make_channel(L"Green", 124), make_channel(L"Blue", 145)},
      level(
          create_scroll_bar(IScrollBar::orientation::vertical, {40, 0, 100, 25, 1}, {0, 0, 1, 1}, nullptr)) {
    root->add_child(glass);
    level->add_position_listener([this](float) { record(); });
}

tank::channel tank::make_channel(std::wstring_view name, float value) {
    const auto bar =
        create_scroll_bar(IScrollBar::orientation::horizontal, {value, 0, 255, 32, 1}, {0, 0, 1, 1}, nullptr);
    channel made{make_label(name, style.body),
                 bar,
                 {root, bar},
                 make_label(text_of(value), style.body, style.faint_ink)};
    bar->add_position_listener([this, shown = made.value](float position) {
        change_text(*shown, text_of(position));
        record();
    });
    root->add_child(made.name->get_node());
    root->add_child(made.value->get_node());
    return made;
}

void tank::place(D2D_RECT_F rect) {
    root->set_transform(sketch::moved(rect.left, rect.top));
    const float width = rect.right - rect.left;
    const float glass_left = width - glass_width;
    const float level_left = glass_left - space::small - thickness;
    const float value_left = level_left - space::usual - value_width;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const float top = 12 + 32 * static_cast<float>(i);
        put(*channels[i].name, 0, top);
        channels[i].place.place({name_width, top + 2, value_left - space::small, top + 2 + thickness});
        put(*channels[i].value, value_left, top);
    }
    level_place.place({level_left, 0, level_left + thickness, height});
    glass->set_transform(sketch::moved(glass_left, 0));
    record();
}

void tank::record() {
    const auto part = [&](std::size_t i) { return channels[i].bar->get_position() / 255; };
    const auto water = d2d::scene::create_solid_color_brush({part(0), part(1), part(2), 1});
    const float surface = 4 + (height - 8) * level->get_position() / 100;
    const auto context = glass->draw(true);
    context->fill_geometry(sketch::rounded(0, 0, glass_width, height, 4).get(), style.tint.get());
    context->fill_geometry(sketch::rectangle(0, surface, glass_width, height).get(), water.get());
    context->draw_geometry(sketch::rounded(0.5f, 0.5f, glass_width - 0.5f, height - 0.5f, 4).get(),
                           style.faint_ink.get(), 1, nullptr);
}

}  // namespace gallery
