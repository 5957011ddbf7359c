#include "harbour.h"

#include "common/shapes.h"
#include "water.h"

#include <algorithm>

namespace gallery {

using namespace sketch;

namespace {

constexpr float reach = 56;  // of the boat, to both sides
constexpr float sea_height = 48;

}  // namespace

harbour::harbour() {
    picture->add_child(boat);
}

void harbour::place(D2D_RECT_F rect) {
    size = {rect.right - rect.left, rect.bottom - rect.top};
    picture->set_transform(moved(rect.left, rect.top));
    picture->set_clip_rect({0, 0, size.width, size.height});
    record();
    move_boat();
}

void harbour::record() {
    const auto context = picture->draw(true);
    context->fill_geometry(rectangle(0, 0, size.width, size.height).get(), colours.sky.get());
    record_coast(*context);
    record_sea(*context);
    record_boat();
}

void harbour::record_coast(d2d::scene::IDrawingContext& context) const {
    const float shore = size.height - sea_height;
    const auto rise = [&](float left, float right, float part, const palette::brush& green) {
        const auto shape = hill(size.width * left, size.width * right, shore, shore * (1 - part));
        context.fill_geometry(shape.get(), green.get());
    };
    if (sun) {
        const D2D_POINT_2F middle{size.width - 88, shore * 0.42f};
        context.fill_geometry(circle(middle.x, middle.y, 34).get(), palette::of(0xF6C85F, 0.35f).get());
        context.fill_geometry(circle(middle.x, middle.y, 24).get(), colours.sun.get());
    }
    if (!hills) return;
    rise(0.25f, 0.95f, 0.92f, colours.far_hill);
    rise(-0.2f, 0.5f, 0.7f, colours.near_hill);
    rise(0.75f, 1.2f, 0.62f, colours.near_hill);
}

void harbour::record_sea(d2d::scene::IDrawingContext& context) const {
    const float shore = size.height - sea_height;
    context.fill_geometry(rectangle(0, shore, size.width, size.height).get(), colours.water.get());
    if (!waves) return;
    for (int row = 0; row < 3; ++row) {
        const auto down = static_cast<float>(row);
        const auto band = water(size.width, shore + 9 + 13 * down, size.height, 16 * down);
        context.fill_geometry(band.get(), palette::of(0x6FA9B8, 0.18f).get());
    }
}

void harbour::record_boat() {
    const auto context = boat->draw(true);
    if (anchored)
        context->draw_geometry(polygon({{38, 8}, {50, 40}, {50, 40}}).get(), colours.ink.get(), 1.5f,
                               nullptr);
    context->fill_geometry(rectangle(-1.5f, -52, 1.5f, 8).get(), colours.ink.get());
    context->fill_geometry(polygon({{4, -2}, {4, -46}, {34, -2}}).get(), sail.get());
    context->fill_geometry(polygon({{-4, -4}, {-4, -40}, {-28, -4}}).get(), sail.get());
    context->fill_geometry(polygon({{-44, 4}, {44, 4}, {32, 24}, {-32, 24}}).get(), colours.hull.get());
}

float harbour::sail_by(float distance) {
    at += distance;
    move_boat();
    return at;
}

void harbour::move_boat() {
    at = std::clamp(at, reach, std::max(reach, size.width - reach));
    boat->set_transform(moved(at, size.height - sea_height + 2));
}

}  // namespace gallery
