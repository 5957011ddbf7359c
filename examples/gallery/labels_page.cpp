#include "labels_page.h"

#include "choice.h"
#include "common/shapes.h"
#include "controls.h"
#include "d2d/ui/ICommandStrip.h"
#include "d2d/ui/IGroupBox.h"
#include "d2d/ui/IStyle.h"
#include "icons.h"
#include "swatch.h"

#include <array>

namespace gallery {
namespace {

using label = com::ptr<d2d::ui::ITextLabel>;

constexpr float icon_size = 48;
constexpr D2D_SIZE_F square{40, space::line};

class labels_page : public page {
public:
    explicit labels_page(const look& colours)
        : page(colours, L"Labels", L"What is read, and what stands around it.") {
        add_text_labels();
        add_changing_label();
        add_icon_labels();
        add_group_box();
        add_strips();
    }

private:
    void add_text_labels();
    void add_changing_label();
    void add_icon_labels();
    void add_group_box();
    void add_strips();
    void add_swatches(flow& line);
    [[nodiscard]] static sketch::node make_bay();
    [[nodiscard]] sketch::node make_notice() const;
    void show_in_box(const sketch::node& content);

    label word = make_label(L"Harbour", look::font(32, DWRITE_FONT_WEIGHT_SEMI_BOLD), style.accent);
    choice languages{[this](std::size_t which) {
        static constexpr std::wstring_view words[] = {L"Harbour", L"Hafen", L"Λιμάνι", L"Гавань"};
        change_text(*word, words[which]);
    }};

    com::ptr<d2d::ui::IIconLabel> icon = make_icon(icons::boat, icon_size, style.accent);
    choice shapes{[this](std::size_t which) {
        static constexpr std::string_view paths[] = {icons::boat, icons::anchor, icons::heart, icons::star};
        icon->set_geometry(icons::geometry(paths[which], icon_size).get());
    }};

    com::ptr<d2d::ui::IGroupBox> box = d2d::ui::create_group_box(nullptr, {}, nullptr);
    sketch::node bay = make_bay();
    sketch::node notice = make_notice();
    choice contents{[this](std::size_t which) {
        show_in_box(std::array<sketch::node, 3>{bay, notice, nullptr}[which]);
    }};
};

void labels_page::add_text_labels() {
    card& sheet = add_card(L"Text labels", L"In the formats of the style, and in others.");
    const auto settings = d2d::ui::get_default_style(nullptr)->get_settings();
    const auto red = sketch::palette::of(0xB3364D);
    sheet.add_flow().add(make_label(L"A heading of the style", settings->get_text_format("header.text")));
    sheet.add_flow().add(make_label(L"An error of the style", settings->get_text_format("error.text"), red));
    sheet.add_flow().add(make_label(L"Neither format nor brush: the style has both.", nullptr));
    const auto italic = look::font(13, DWRITE_FONT_WEIGHT_NORMAL, DWRITE_FONT_STYLE_ITALIC);
    sheet.add_flow(space::usual)
        .add(make_label(L"Strong", style.strong, style.accent))
        .add(make_label(L"Slanted", italic, style.ink))
        .add(make_label(L"Two lines\nin one label", style.body, style.faint_ink));
}

void labels_page::add_changing_label() {
    card& sheet = add_card(L"One that changes", L"Its text is Unicode, its brush is your choice.");
    sheet.add_flow().add(word, {200, 44});
    flow& tongues = sheet.add_flow();
    for (const auto* name : {L"EN", L"DE", L"EL", L"RU"}) {
        const auto button = make_button(style, name, press::latches);
        languages.add(button);
        tongues.add(button, {48, space::line});
    }
    add_swatches(sheet.add_flow());
}

void labels_page::add_swatches(flow& line) {
    for (const unsigned colour : {0x4D4DB3u, 0x3F7C91u, 0x5E8C61u, 0xC8553Du}) {
        const auto brush = sketch::palette::of(colour);
        const auto sample = com::create_object<swatch>(brush.get());
        const auto button = make_button(sample.get());
        button->set_on_click([changed = word, brush](bool) { changed->set_brush(brush); });
        line.add(button, square);
    }
}

void labels_page::add_icon_labels() {
    card& sheet = add_card(L"Icon labels", L"Each fills a geometry, here the path of an SVG.");
    sheet.add_flow().add_moved(icon);
    flow& line = sheet.add_flow();
    for (const auto path : {icons::boat, icons::anchor, icons::heart, icons::star}) {
        const auto button = make_button(make_icon(path, space::usual).get(), press::latches);
        shapes.add(button);
        line.add(button, square);
    }
}

void labels_page::add_group_box() {
    card& sheet = add_card(L"Group box", L"A frame around whatever node it is given.");
    sheet.node()->add_child(box->get_node());
    static_cast<void>(box->set_content(bay));
    sheet.add_area(96, [this](D2D_RECT_F rect) { box->arrange(rect); });
    flow& line = sheet.add_flow();
    for (const auto* name : {L"Bay", L"Notice", L"Nothing"}) {
        const auto button = make_button(style, name, press::latches);
        contents.add(button);
        line.add(button);
    }
}

// A box moves its content when it is arranged elsewhere, not when it gets it.
void labels_page::show_in_box(const sketch::node& content) {
    const D2D_RECT_F place = box->get_rect();
    if (content) content->set_transform(sketch::moved(place.left, place.top));
    static_cast<void>(box->set_content(content));
}

sketch::node labels_page::make_bay() {
    const sketch::palette colours;
    return sketch::recorded([&](d2d::scene::IDrawingContext& context) {
        context.fill_geometry(sketch::hill(16, 128, 64, 16).get(), colours.far_hill.get());
        context.fill_geometry(sketch::hill(72, 208, 64, 32).get(), colours.near_hill.get());
        context.fill_geometry(sketch::rounded(16, 64, 208, 80, 2).get(), colours.water.get());
    });
}

sketch::node labels_page::make_notice() const {
    const auto head = sketch::text(L"Notice to mariners", 13, 0, DWRITE_FONT_WEIGHT_SEMI_BOLD);
    const auto text = sketch::text(L"The pier is under repair.\nMoor at the quay instead.", 13);
    return sketch::recorded([&](d2d::scene::IDrawingContext& context) {
        constexpr auto no_options = D2D1_DRAW_TEXT_OPTIONS_NONE;
        context.draw_text_layout(16, 16, head.get(), style.ink.get(), no_options);
        context.draw_text_layout(16, 40, text.get(), style.faint_ink.get(), no_options);
    });
}

void labels_page::add_strips() {
    using d2d::ui::create_command_strip;
    card& sheet = add_card(L"Command strips", L"Cells in one outline. They show that they are pressed.");
    const auto text = [&](std::wstring_view command) { return make_label(command, style.body); };
    const auto picture = [](std::string_view path) { return make_icon(path, space::usual); };
    const auto horizontal = create_command_strip(
        false, {72, space::line},
        {{nullptr, text(L"Cast off").get()}, {nullptr, text(L"Turn").get()}, {nullptr, text(L"Moor").get()}},
        nullptr);
    const auto pictures = create_command_strip(false, square,
                                               {{nullptr, picture(icons::text_left).get()},
                                                {nullptr, picture(icons::text_centre).get()},
                                                {nullptr, picture(icons::text_right).get()},
                                                {nullptr, picture(icons::text_full).get()}},
                                               nullptr);
    const auto vertical = create_command_strip(
        true, square, {{nullptr, picture(icons::plus).get()}, {nullptr, picture(icons::minus).get()}},
        nullptr);
    sheet.add_flow(space::usual).add_moved(horizontal).add_moved(pictures).add_moved(vertical);
}

}  // namespace

std::unique_ptr<page> make_labels_page(const look& style) {
    return std::make_unique<labels_page>(style);
}

}  // namespace gallery
