#include "flow.h"

#include "common/shapes.h"

#include <algorithm>
#include <cmath>

namespace gallery {

flow& flow::add(com::ptr<d2d::ui::IControl> control) {
    return add({std::move(control), manner::preferred, {}});
}

flow& flow::add(com::ptr<d2d::ui::IControl> control, D2D_SIZE_F size) {
    return add({std::move(control), manner::sized, size});
}

flow& flow::add_joined(com::ptr<d2d::ui::IControl> control, D2D_SIZE_F size) {
    return add({std::move(control), manner::sized, size, true});
}

flow& flow::add_moved(com::ptr<d2d::ui::IControl> control) {
    return add({std::move(control), manner::moved, {}});
}

flow& flow::add(item added) {
    parent->add_child(added.control->get_node());
    items.push_back(std::move(added));
    return *this;
}

D2D_SIZE_F flow::size_of(const item& each) {
    switch (each.kind) {
        case manner::preferred:
            return each.control->measure().preferred_size;
        case manner::moved: {
            const D2D_RECT_F rect = each.control->get_rect();
            return {rect.right - rect.left, rect.bottom - rect.top};
        }
        case manner::sized:
            break;
    }
    return each.size;
}

float flow::place(D2D_POINT_2F corner, float width) {
    float y = corner.y;
    float x = 0;
    float height = 0;
    std::size_t first = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const D2D_SIZE_F size = size_of(items[i]);
        if (i > first && !items[i].joined && x + width_with_joined(i) > width) {
            place_line(first, i, {corner.x, y}, height);
            y += height + between;
            first = i;
            x = height = 0;
        }
        x += size.width + between;
        height = std::max(height, size.height);
    }
    place_line(first, items.size(), {corner.x, y}, height);
    return y + height - corner.y;
}

// Of a control and those that stay with it.
float flow::width_with_joined(std::size_t first) const {
    float width = size_of(items[first]).width;
    for (std::size_t i = first + 1; i < items.size() && items[i].joined; ++i)
        width += between + size_of(items[i]).width;
    return width;
}

// Each in the middle of the line's height, on whole pixels.
void flow::place_line(std::size_t first, std::size_t end, D2D_POINT_2F corner, float height) const {
    for (std::size_t i = first; i < end; ++i) {
        const item& each = items[i];
        const D2D_SIZE_F size = size_of(each);
        const float top = std::round(corner.y + (height - size.height) / 2);
        if (each.kind == manner::moved) {
            const D2D_RECT_F rect = each.control->get_rect();
            each.control->get_node()->set_transform(sketch::moved(corner.x - rect.left, top - rect.top));
        } else {
            each.control->arrange({corner.x, top, corner.x + size.width, top + size.height});
        }
        corner.x = std::round(corner.x + size.width + between);
    }
}

}  // namespace gallery
