#include "chart.h"

#include "common/palette.h"
#include "common/shapes.h"
#include "d2d/factory.h"

#include <cmath>
#include <string>

namespace gallery::chart {

using namespace sketch;

namespace {

using context = d2d::scene::IDrawingContext;

constexpr auto no_options = D2D1_DRAW_TEXT_OPTIONS_NONE;

void write(context& into, const std::wstring& words, float x, float y, float font,
           const palette::brush& ink) {
    const auto layout = text(words, font);
    into.draw_text_layout(std::round(x - layout->GetMaxWidth() / 2),
                          std::round(y - layout->GetMaxHeight() / 2), layout.get(), ink.get(), no_options);
}

/// An island with its shallows. They all have one coast, in different sizes and mirrored.
void draw_island(context& into, D2D_POINT_2F middle, D2D_SIZE_F scale, const palette& colours) {
    constexpr std::string_view coast =
        "M0 -82 C55 -86 104 -48 100 4 C96 52 52 78 2 80 C-50 82 -104 62 -106 8 C-108 -46 -52 -78 0 -82 Z";
    const auto fill = [&](float by, const palette::brush& colour) {
        const D2D_MATRIX_3X2_F place{{{scale.width * by, 0, 0, scale.height * by, middle.x, middle.y}}};
        into.fill_geometry(d2d::factory::parse_svg_path(coast, place).get(), colour.get());
    };
    fill(1.4f, palette::of(0xA9CFD9));
    fill(1.18f, palette::of(0xC6E1E6));
    fill(1, colours.near_hill);
    fill(0.975f, palette::of(0xEFE3BE));
}

void draw_grid(context& into, const palette::brush& ink) {
    for (int i = 1; i < columns; ++i) {
        const float x = square * static_cast<float>(i);
        into.fill_geometry(rectangle(x, 0, x + 1, size.height).get(), ink.get());
    }
    for (int i = 1; i < rows; ++i) {
        const float y = square * static_cast<float>(i);
        into.fill_geometry(rectangle(0, y, size.width, y + 1).get(), ink.get());
    }
}

/// Depths, here and there.
void draw_soundings(context& into, const palette::brush& ink) {
    for (int row = 0; row < rows; ++row)
        for (int column = 1 + row % 2 * 2; column < columns; column += 4) {
            const int depth = 6 + (column * 7 + row * 11) % 23 + 2 * row;
            write(into, std::to_wstring(depth), square * (static_cast<float>(column) + 0.5f),
                  square * (static_cast<float>(row) + 0.5f), 11, ink);
        }
}

void draw_course(context& into, const palette& colours) {
    constexpr std::string_view path =
        "M255 164 C330 330 380 425 500 430 C660 436 700 300 850 330 C960 352 930 560 983 664";
    const auto dashes = d2d::factory::create_stroke_style(D2D1_DASH_STYLE_DASH, D2D1_CAP_STYLE_ROUND,
                                                          D2D1_LINE_JOIN_ROUND, 10, 0);
    into.draw_geometry(d2d::factory::parse_svg_path(path, moved(0, 0)).get(), colours.accent.get(), 2,
                       dashes.get());
    into.fill_geometry(circle(255, 164, 6).get(), colours.accent.get());
    into.fill_geometry(circle(983, 664, 6).get(), colours.accent.get());
}

}  // namespace

node make() {
    const palette colours;
    return recorded([&](context& into) {
        into.fill_geometry(rectangle(0, 0, size.width, size.height).get(), palette::of(0x8FBECB).get());
        draw_island(into, {155, 160}, {1, 1}, colours);
        draw_island(into, {618, 144}, {-0.85f, 0.9f}, colours);
        draw_island(into, {350, 645}, {1.45f, -1.5f}, colours);
        draw_island(into, {1110, 680}, {-1.2f, 1.3f}, colours);
        draw_island(into, {1040, 125}, {0.7f, -0.55f}, colours);
        draw_grid(into, palette::of(0xFFFFFF, 0.35f));
        draw_soundings(into, palette::of(0x2B3A3A, 0.45f));
        draw_course(into, colours);
        write(into, L"Moss Harbour", 150, 160, 15, colours.ink);
        write(into, L"Gull Rock", 618, 144, 13, colours.ink);
        write(into, L"Long Strand", 350, 645, 15, colours.ink);
        write(into, L"Lantern Point", 1110, 680, 13, colours.ink);
        write(into, L"Seal Skerry", 1040, 125, 12, colours.ink);
    });
}

node make_letters(float height) {
    return recorded([&](context& into) {
        for (int i = 0; i < columns; ++i)
            write(into, std::wstring(1, static_cast<wchar_t>(L'A' + i)),
                  square * (static_cast<float>(i) + 0.5f), height / 2, 12, palette::of(0x666B85));
    });
}

node make_numbers(float width) {
    return recorded([&](context& into) {
        for (int i = 0; i < rows; ++i)
            write(into, std::to_wstring(i + 1), width / 2, square * (static_cast<float>(i) + 0.5f), 12,
                  palette::of(0x666B85));
    });
}

}  // namespace gallery::chart
