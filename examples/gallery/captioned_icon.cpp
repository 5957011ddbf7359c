#include "captioned_icon.h"

#include "common/shapes.h"

#include <cmath>

namespace gallery {

captioned_icon::captioned_icon(std::string_view icon, std::wstring_view text, const look::format& font,
                               D2D_SIZE_F size)
    : picture(make_icon(icon, space::usual)),
      caption(make_label(text, font)),
      rect{-size.width / 2, -size.height / 2, size.width / 2, size.height / 2} {
    node->add_child(picture->get_node());
    node->add_child(caption->get_node());
    arrange(rect);
}

d2d::scene::layout::metrics captioned_icon::measure() {
    const D2D_SIZE_F size{rect.right - rect.left, rect.bottom - rect.top};
    return {{}, size, size, size};
}

void captioned_icon::arrange(D2D_RECT_F place) {
    rect = place;
    const float middle = (rect.top + rect.bottom) / 2;
    picture->get_node()->set_transform(sketch::moved(rect.left + space::usual / 2, middle));
    const D2D_SIZE_F text = caption->measure().preferred_size;
    const float x = rect.left + space::usual + 10;
    const float y = std::round(middle - text.height / 2);
    caption->arrange({x, y, x + text.width, y + text.height});
}

void captioned_icon::set_brush(com::ptr<d2d::scene::IBrush> brush) {
    picture->set_brush(brush);
    caption->set_brush(std::move(brush));
}

}  // namespace gallery
