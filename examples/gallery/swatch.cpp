#include "swatch.h"

#include "common/shapes.h"

namespace gallery {
namespace {

constexpr float radius = 8;

}  // namespace

swatch::swatch(d2d::scene::IBrush* colour) {
    node->draw(true)->fill_geometry(sketch::circle(0, 0, radius).get(), colour);
}

d2d::scene::layout::metrics swatch::measure() {
    constexpr D2D_SIZE_F size{2 * radius, 2 * radius};
    return {{}, size, size, size};
}

D2D_RECT_F swatch::get_rect() {
    return {-radius, -radius, radius, radius};
}

}  // namespace gallery
