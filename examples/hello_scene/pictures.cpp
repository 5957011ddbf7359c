#include "pictures.h"

#include "common/shapes.h"
#include "d2d/factory.h"
#include "d2d/scene/IBitmap.h"

#include <memory>

namespace hello {

using namespace sketch;

namespace {

constexpr auto no_text_options = D2D1_DRAW_TEXT_OPTIONS_NONE;

node make_boat(const palette& colours) {
    auto boat = recorded([&](d2d::scene::IDrawingContext& context) {
        context.fill_geometry(rectangle(-1.5f, -76, 1.5f, 4).get(), colours.ink.get());
        context.fill_geometry(polygon({{-46, 0}, {46, 0}, {32, 20}, {-34, 20}}).get(), colours.hull.get());
    });
    auto sails = recorded([&](d2d::scene::IDrawingContext& context) {
        context.fill_geometry(polygon({{4, -6}, {4, -70}, {40, -6}}).get(), colours.sail.get());
        context.fill_geometry(polygon({{-4, -10}, {-4, -60}, {-28, -10}}).get(), colours.accent.get());
    });
    boat->add_child(sails);
    return boat;
}

node make_water(const palette& colours) {
    return recorded([&](d2d::scene::IDrawingContext& context) {
        context.fill_geometry(rectangle(0, 0, 320, 90).get(), colours.water.get());
        const auto round = round_strokes();
        for (int row = 0; row < 4; ++row) {
            const float left = row % 2 ? -10.0f : -30.0f;
            const float y = 16.0f + static_cast<float>(row) * 20;
            context.draw_geometry(waves(left, y, 40, 10).get(), colours.wave.get(), 2, round.get());
        }
    });
}

/// 64 by 64 pixels: a disc of moss on water, premultiplied.
com::ptr<d2d::scene::IBitmap> make_disc() {
    constexpr unsigned side = 64;
    auto pixels = std::make_unique<unsigned[]>(side * side);
    for (unsigned y = 0; y < side; ++y) {
        for (unsigned x = 0; x < side; ++x) {
            const int dx = static_cast<int>(x) - 32;
            const int dy = static_cast<int>(y) - 32;
            const bool inside = dx * dx + dy * dy < 30 * 30;
            const unsigned green = 0x70 + y;
            const unsigned blue = 0x40 + x;
            pixels[y * side + x] = inside ? 0xFF000000u | 0x30u << 16 | green << 8 | blue : 0u;
        }
    }
    return d2d::scene::IBitmap::create({side, side}, std::move(pixels));
}

void draw_card(d2d::scene::IDrawingContext& context, const palette& colours, float width, float height) {
    const auto outline = rounded(0.5f, 0.5f, width - 0.5f, height - 0.5f, 8);
    context.fill_geometry(outline.get(), colours.card.get());
    context.draw_geometry(outline.get(), colours.edge.get(), 1, nullptr);
}

}  // namespace

node make_harbour(const palette& colours) {
    auto harbour = recorded([&](d2d::scene::IDrawingContext& context) {
        context.fill_geometry(rectangle(0, 0, 320, 240).get(), colours.sky.get());
        context.fill_geometry(circle(250, 60, 28).get(), colours.sun.get());
        context.fill_geometry(hill(-60, 220, 160, 50).get(), colours.far_hill.get());
        context.fill_geometry(hill(110, 400, 160, 70).get(), colours.near_hill.get());
        context.foreground();
        context.draw_geometry(rectangle(4, 4, 316, 236).get(), colours.card.get(), 8, nullptr);
        context.draw_geometry(rectangle(8.5f, 8.5f, 311.5f, 231.5f).get(), colours.edge.get(), 1, nullptr);
    });
    harbour->set_clip_rect({0, 0, 320, 240});
    auto water = make_water(colours);
    water->set_transform(moved(0, 150));
    auto boat = make_boat(colours);
    boat->set_transform(turned(-6, 128, 4));
    water->add_child(boat);
    harbour->add_child(water);
    return harbour;
}

node make_bitmaps(const palette& colours) {
    return recorded([&](d2d::scene::IDrawingContext& context) {
        draw_card(context, colours, 236, 104);
        context.draw_bitmap(20, 16, make_disc().get());
        const auto icon = d2d::scene::IBitmap::create(LoadIconW(nullptr, IDI_INFORMATION));
        context.draw_bitmap(140, 32, icon.get());
        context.draw_text_layout(30, 82, text(L"pixels", 13).get(), colours.faint_ink.get(), no_text_options);
        context.draw_text_layout(144, 82, text(L"icon", 13).get(), colours.faint_ink.get(), no_text_options);
    });
}

node make_strokes(const palette& colours) {
    return recorded([&](d2d::scene::IDrawingContext& context) {
        draw_card(context, colours, 236, 120);
        const struct {
            D2D1_DASH_STYLE dash;
            D2D1_CAP_STYLE cap;
            float width;
        } lines[] = {{D2D1_DASH_STYLE_SOLID, D2D1_CAP_STYLE_ROUND, 6},
                     {D2D1_DASH_STYLE_DASH, D2D1_CAP_STYLE_FLAT, 4},
                     {D2D1_DASH_STYLE_DASH_DOT, D2D1_CAP_STYLE_ROUND, 3},
                     {D2D1_DASH_STYLE_DOT, D2D1_CAP_STYLE_SQUARE, 2}};
        float y = 24;
        for (const auto& line : lines) {
            const auto style =
                d2d::factory::create_stroke_style(line.dash, line.cap, D2D1_LINE_JOIN_ROUND, 10, 0);
            context.draw_geometry(waves(20, y, 49, 4).get(), colours.near_hill.get(), line.width,
                                  style.get());
            y += 24;
        }
    });
}

node make_title(const palette& colours) {
    return recorded([&](d2d::scene::IDrawingContext& context) {
        const auto title = text(L"Moss Harbour", 34, 0, DWRITE_FONT_WEIGHT_BOLD);
        context.draw_text_layout(0, 0, title.get(), colours.ink.get(), no_text_options);
        const auto line =
            text(L"A retained scene: recorded once, replayed at every paint. Grüße — привет — γειά", 15);
        context.draw_text_layout(2, 46, line.get(), colours.faint_ink.get(), no_text_options);
    });
}

}  // namespace hello
