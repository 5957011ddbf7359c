#include "page.h"

#include <algorithm>
#include <cmath>

namespace gallery {
namespace {

constexpr float narrowest_card = 288;
constexpr std::size_t most_columns = 3;

[[nodiscard]] std::size_t columns_in(float width) {
    const float fit = (width + space::usual) / (narrowest_card + space::usual);
    return std::clamp(static_cast<std::size_t>(fit), std::size_t{1}, most_columns);
}

}  // namespace

page::page(const look& colours, std::wstring name, std::wstring words)
    : style(colours),
      title(ground, std::move(name), colours.title, colours.ink),
      about(ground, std::move(words), colours.body, colours.faint_ink) {}

card& page::add_card(std::wstring heading, std::wstring words) {
    cards.push_back(std::make_unique<card>(style, std::move(heading), std::move(words)));
    ground->add_child(cards.back()->node());
    return *cards.back();
}

D2D_SIZE_F page::arrange(D2D_SIZE_F view) {
    const float width = std::max(narrowest_card, view.width - 2 * space::large);
    float y = space::large;
    y += title.place({space::large, y}, width) + space::small / 2;
    y += about.place({space::large, y}, width) + space::usual;
    if (rest) rest->grow(0);
    float bottom = place_rows(y, width) + space::large;
    if (rest && bottom < view.height) {
        rest->grow(view.height - bottom);
        bottom = place_rows(y, width) + space::large;
    }
    return {width + 2 * space::large, bottom};
}

float page::place_rows(float y, float width) {
    const std::size_t columns = columns_in(width);
    for (std::size_t first = 0; first < cards.size();) {
        const std::size_t end = row_end(first, columns);
        y += place_row(first, end, y, width) + space::usual;
        first = end;
    }
    return y - space::usual;
}

// A wide card is a row; others are spread evenly over the rows that they need.
std::size_t page::row_end(std::size_t first, std::size_t columns) const {
    if (cards[first]->is_wide()) return first + 1;
    std::size_t end = first + 1;
    while (end < cards.size() && !cards[end]->is_wide()) ++end;
    const std::size_t rows = (end - first + columns - 1) / columns;
    return first + (end - first + rows - 1) / rows;
}

// The cards of a row share its width, and are as high as the highest. Returns that height.
float page::place_row(std::size_t first, std::size_t end, float y, float width) {
    const float step = std::floor((width + space::usual) / static_cast<float>(end - first));
    const auto left_of = [&](std::size_t i) { return step * static_cast<float>(i - first); };
    const auto width_of = [&](std::size_t i) {
        return i + 1 == end ? width - left_of(i) : step - space::usual;
    };
    float height = 0;
    for (std::size_t i = first; i < end; ++i)
        height = std::max(height, cards[i]->place({space::large + left_of(i), y}, width_of(i)));
    for (std::size_t i = first; i < end; ++i) cards[i]->paint({width_of(i), height});
    return height;
}

}  // namespace gallery
