#include "card.h"

#include "common/shapes.h"
#include "paragraph.h"

namespace gallery {

card::card(const look& colours, std::wstring heading, std::wstring words) : style(colours) {
    blocks.push_back(std::make_unique<paragraph>(sheet, std::move(heading), style.heading, style.ink));
    blocks.push_back(std::make_unique<paragraph>(sheet, std::move(words), style.body, style.faint_ink));
}

flow& card::add_flow(float between) {
    auto added = std::make_unique<flow>(sheet, between);
    flow& result = *added;
    blocks.push_back(std::move(added));
    return result;
}

area& card::add_area(float height, area::place_function placed) {
    auto added = std::make_unique<area>(height, std::move(placed));
    area& result = *added;
    blocks.push_back(std::move(added));
    return result;
}

float card::place(D2D_POINT_2F corner, float width) {
    sheet->set_transform(sketch::moved(corner.x, corner.y));
    float y = space::usual;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (i > 0) y += i == 1 ? space::small / 2 : space::usual;
        y += blocks[i]->place({space::usual, y}, width - 2 * space::usual);
    }
    return y + space::usual;
}

void card::paint(D2D_SIZE_F size) {
    const auto shape = sketch::rounded(0.5f, 0.5f, size.width - 0.5f, size.height - 0.5f, 6);
    const auto context = sheet->draw(true);
    context->fill_geometry(shape.get(), style.card.get());
    context->draw_geometry(shape.get(), style.edge.get(), 1, nullptr);
}

}  // namespace gallery
