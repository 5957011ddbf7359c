#include "pictures.h"

#include "common/shapes.h"
#include "d2d/factory.h"
#include "turning.h"

#include <string_view>

namespace playground {

using namespace sketch;

namespace {

using context = d2d::scene::IDrawingContext;
using brush = palette::brush;

constexpr auto no_text_options = D2D1_DRAW_TEXT_OPTIONS_NONE;

void write_word(context& into, std::wstring_view word, const palette& colours) {
    const auto layout = text(word, 13);
    into.draw_text_layout(-layout->GetMaxWidth() / 2, 36, layout.get(), colours.sail.get(), no_text_options);
}

com::ptr<ID2D1Geometry> svg(std::string_view path, float scale, float x, float y) {
    return d2d::factory::parse_svg_path(path, {{{scale, 0, 0, scale, x, y}}});
}

/// A brush between bright and dim: blinking, or bright when `still`.
brush blinking(unsigned rgb, float bright, float dim, bool still) {
    if (still) return palette::of(rgb, bright);
    return d2d::scene::create_blinking_solid_color_brush(palette::colour(rgb, bright),
                                                         palette::colour(rgb, dim), 0.7f);
}

/// The same, swinging.
brush pulsating(unsigned rgb, float bright, float dim, bool still) {
    if (still) return palette::of(rgb, bright);
    return d2d::scene::create_pulsating_solid_color_brush(palette::colour(rgb, dim),
                                                          palette::colour(rgb, bright), 2.4, 1.5);
}

}  // namespace

node make_lighthouse(const palette& colours, bool still) {
    return recorded([&](context& into) {
        into.fill_geometry(polygon({{0, -30}, {-50, -46}, {-50, -16}}).get(),
                           blinking(0xF6C85F, 0.55f, 0, still).get());
        into.fill_geometry(polygon({{0, -30}, {50, -46}, {50, -16}}).get(),
                           blinking(0xF6C85F, 0.55f, 0, still).get());
        into.fill_geometry(hill(-44, 44, 34, 2).get(), colours.near_hill.get());
        into.fill_geometry(polygon({{-9, -20}, {9, -20}, {14, 24}, {-14, 24}}).get(), colours.sail.get());
        into.fill_geometry(polygon({{-10, -10}, {10, -10}, {11.4f, 2}, {-11.4f, 2}}).get(),
                           colours.accent.get());
        into.fill_geometry(polygon({{-12.8f, 14}, {12.8f, 14}, {14, 24}, {-14, 24}}).get(),
                           colours.accent.get());
        into.fill_geometry(rectangle(-13, -22, 13, -19).get(), colours.ink.get());
        into.fill_geometry(rectangle(-7, -38, 7, -22).get(), colours.ink.get());
        into.fill_geometry(circle(0, -30, 5.5f).get(), blinking(0xFFE9A8, 1, 0.25f, still).get());
        into.fill_geometry(polygon({{-10, -38}, {0, -50}, {10, -38}}).get(), colours.accent.get());
        write_word(into, L"blinks", colours);
    });
}

node make_buoy(const palette& colours, bool still) {
    return recorded([&](context& into) {
        into.fill_geometry(circle(0, -26, 24).get(), pulsating(0xF6C85F, 0.5f, 0, still).get());
        into.draw_geometry(polygon({{0, -24}, {-11, 4}, {11, 4}}).get(), colours.ink.get(), 3, nullptr);
        into.fill_geometry(circle(0, -26, 8).get(), pulsating(0xFFE9A8, 1, 0.3f, still).get());
        into.fill_geometry(polygon({{-26, 4}, {26, 4}, {20, 28}, {-20, 28}}).get(), colours.accent.get());
        into.fill_geometry(polygon({{-24, 12}, {24, 12}, {22.5f, 18}, {-22.5f, 18}}).get(),
                           colours.sail.get());
        into.draw_geometry(waves(-36, 29, 24, 3).get(), colours.wave.get(), 3, round_strokes().get());
        write_word(into, L"pulsates", colours);
    });
}

node make_wheel(const palette& colours, bool still) {
    auto wheel = recorded([&](context& into) {
        const auto round = round_strokes();
        for (float angle = 0; angle < 180; angle += 45) {
            const auto spoke = d2d::factory::parse_svg_path("M-38 0 H38", turned(angle, 0, 0));
            into.draw_geometry(spoke.get(), colours.hull.get(), 5, round.get());
        }
        into.draw_geometry(circle(0, 0, 24).get(), colours.hull.get(), 8, nullptr);
        into.draw_geometry(circle(0, 0, 24).get(), colours.sun.get(), 1.5f, nullptr);
        into.fill_geometry(circle(0, 0, 8).get(), colours.sun.get());
        into.fill_geometry(circle(0, 0, 3.5f).get(), colours.hull.get());
    });
    if (!still) wheel->set_transform_animation(make_turning(8).get());
    auto hub = d2d::scene::create_node();
    hub->set_transform(moved(0, -8));
    hub->add_child(wheel);
    auto picture = recorded([&](context& into) { write_word(into, L"turns", colours); });
    picture->add_child(hub);
    return picture;
}

node make_anchor(const palette& colours) {
    constexpr std::string_view path =
        "M12 1 C10.1 1 8.6 2.5 8.6 4.4 C8.6 5.9 9.6 7.1 10.9 7.6 V9.4 H7.5 V11.8 H10.9 V20.2"
        "C7.9 19.8 5.4 17.9 4.5 15.3 L6.6 15.6 L3 10.8 L.4 16.2 L2.3 15.8"
        "C3.5 20.2 7.4 23 12 23 C16.6 23 20.5 20.2 21.7 15.8 L23.6 16.2 L21 10.8 L17.4 15.6 L19.5 15.3"
        "C18.6 17.9 16.1 19.8 13.1 20.2 V11.8 H16.5 V9.4 H13.1 V7.6 C14.4 7.1 15.4 5.9 15.4 4.4"
        "C15.4 2.5 13.9 1 12 1 Z"
        "M12 3 C12.8 3 13.4 3.6 13.4 4.4 C13.4 5.2 12.8 5.8 12 5.8 C11.2 5.8 10.6 5.2 10.6 4.4"
        "C10.6 3.6 11.2 3 12 3 Z";
    return recorded([&](context& into) {
        into.fill_geometry(svg(path, 3.2f, -38.4f, -46.5f).get(), colours.ink.get());
        into.fill_geometry(svg(path, 3.2f, -38.4f, -48.5f).get(), colours.sky.get());
        write_word(into, L"is an SVG path", colours);
    });
}

node make_boat(const palette& colours) {
    return recorded([&](context& into) {
        into.fill_geometry(rectangle(-1.5f, -48, 1.5f, 10).get(), colours.ink.get());
        into.fill_geometry(polygon({{4, -2}, {4, -42}, {32, -2}}).get(), colours.sail.get());
        into.fill_geometry(polygon({{-4, -4}, {-4, -36}, {-26, -4}}).get(), colours.accent.get());
        into.fill_geometry(polygon({{-42, 6}, {42, 6}, {30, 26}, {-30, 26}}).get(), colours.hull.get());
        into.draw_geometry(waves(-48, 28, 24, 4).get(), colours.wave.get(), 3, round_strokes().get());
        write_word(into, L"flies a kite", colours);
    });
}

node make_kite(const palette& colours) {
    return recorded([&](context& into) {
        constexpr float x = 128;
        constexpr float y = -226;
        into.draw_geometry(svg("M0 0 C60 -20 110 -90 128 -200", 1, 0, 0).get(), colours.ink.get(), 1.5f,
                           round_strokes().get());
        into.draw_geometry(
            svg("M128 -188 C118 -172 146 -160 134 -140 C126 -126 150 -116 142 -100", 1, 0, 0).get(),
            colours.accent.get(), 3, round_strokes().get());
        into.fill_geometry(polygon({{x, y - 44}, {x - 30, y}, {x, y}}).get(), colours.accent.get());
        into.fill_geometry(polygon({{x, y - 44}, {x + 30, y}, {x, y}}).get(), colours.sun.get());
        into.fill_geometry(polygon({{x, y + 40}, {x - 30, y}, {x, y}}).get(), colours.near_hill.get());
        into.fill_geometry(polygon({{x, y + 40}, {x + 30, y}, {x, y}}).get(), colours.water.get());
    });
}

node make_title(const palette& colours) {
    return recorded([&](context& into) {
        const auto title = text(L"Playground", 34, 0, DWRITE_FONT_WEIGHT_BOLD);
        into.draw_text_layout(0, 0, title.get(), colours.ink.get(), no_text_options);
        const auto line =
            text(L"Drag the toys; Escape takes a drag back. Tab chooses one, the arrow keys move it.", 15);
        into.draw_text_layout(2, 46, line.get(), colours.faint_ink.get(), no_text_options);
    });
}

}  // namespace playground
