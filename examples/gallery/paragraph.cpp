#include "paragraph.h"

#include <cmath>

namespace gallery {

paragraph::paragraph(const sketch::node& card, std::wstring words, look::format format, look::brush brush)
    : text(std::move(words)), font(std::move(format)), colour(std::move(brush)) {
    card->add_child(node);
}

float paragraph::place(D2D_POINT_2F corner, float width) {
    const auto layout = font->create_layout(text, width, 0);
    node->draw(true)->draw_text_layout(corner.x, corner.y, layout.get(), colour.get(),
                                       D2D1_DRAW_TEXT_OPTIONS_NONE);
    DWRITE_TEXT_METRICS metrics{};
    com::check(layout->GetMetrics(&metrics));
    return std::ceil(metrics.height);
}

}  // namespace gallery
