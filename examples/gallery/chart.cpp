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

/// A coast about a point, and its shallows.
void draw_island(context& into, std::string_view coast, D2D_POINT_2F middle, const palette& colours) {
    const auto scaled = [&](float scale) {
        return d2d::factory::parse_svg_path(coast, {{{scale, 0, 0, scale, middle.x, middle.y}}});
    };
    into.fill_geometry(scaled(1.4f).get(), palette::of(0xA9CFD9).get());
    into.fill_geometry(scaled(1.18f).get(), palette::of(0xC6E1E6).get());
    into.fill_geometry(scaled(1).get(), palette::of(0xEFE3BE).get());
    into.draw_geometry(scaled(1).get(), colours.near_hill.get(), 2, nullptr);
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
    const auto course = d2d::factory::parse_svg_path(
        "M150 200 C260 330 320 420 470 430 C640 440 700 250 860 260 C1010 270 1060 480 1130 640",
        moved(0, 0));
    const auto dashes = d2d::factory::create_stroke_style(D2D1_DASH_STYLE_DASH, D2D1_CAP_STYLE_ROUND,
                                                          D2D1_LINE_JOIN_ROUND, 10, 0);
    into.draw_geometry(course.get(), colours.accent.get(), 2, dashes.get());
    into.fill_geometry(circle(150, 200, 6).get(), colours.accent.get());
    into.fill_geometry(circle(1130, 640, 6).get(), colours.accent.get());
}

}  // namespace

node make() {
    const palette colours;
    return recorded([&](context& into) {
        into.fill_geometry(rectangle(0, 0, size.width, size.height).get(), palette::of(0x8FBECB).get());
        draw_island(into, "M-95 -70 C-35 -120 55 -100 95 -40 C135 20 85 70 25 80 C-45 90 -95 60 -105 10 Z",
                    {155, 160}, colours);
        draw_island(into, "M-58 -64 C22 -84 92 -34 82 26 C62 76 -18 66 -48 36 C-88 6 -98 -44 -58 -64 Z",
                    {618, 144}, colours);
        draw_island(into,
                    "M-100 -85 C-20 -145 110 -105 150 -25 C190 65 140 145 20 145 C-80 145 -150 95 -150 25 Z",
                    {350, 645}, colours);
        draw_island(into,
                    "M-100 -60 C-30 -120 110 -90 120 0 C130 80 50 120 -30 110 C-110 100 -150 0 -100 -60 Z",
                    {1110, 680}, colours);
        draw_island(into, "M-60 -35 C0 -55 80 -25 70 25 C50 65 -40 55 -70 25 Z", {1040, 125}, colours);
        draw_grid(into, palette::of(0xFFFFFF, 0.35f));
        draw_soundings(into, palette::of(0x2B3A3A, 0.45f));
        draw_course(into, colours);
        write(into, L"Moss Harbour", 160, 150, 15, colours.ink);
        write(into, L"Gull Rock", 618, 140, 13, colours.ink);
        write(into, L"Long Strand", 356, 668, 15, colours.ink);
        write(into, L"Lantern Point", 1104, 690, 13, colours.ink);
        write(into, L"Seal Skerry", 1044, 128, 12, colours.ink);
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
