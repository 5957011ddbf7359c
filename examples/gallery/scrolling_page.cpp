#include "scrolling_page.h"

#include "alignment.h"
#include "chart.h"
#include "tank.h"

#include <string>

namespace gallery {
namespace {

constexpr int left = 0;
constexpr int top = 1;
constexpr int bottom = 3;

class scrolling_page : public page {
public:
    explicit scrolling_page(const look& colours)
        : page(colours, L"Scrolling", L"What is larger than the place that it has.") {
        add_chart();
        add_tank();
        add_alignment();
    }

private:
    void add_chart();
    void fill_chart();
    void place_chart(D2D_RECT_F rect);
    void tell_view(D2D_RECT_F view);
    void add_wheel_modes(flow& line);
    void add_jumps(flow& line);
    void add_tank();
    void add_alignment();

    tank water{style};
    alignment small_area{style};

    com::ptr<d2d::ui::IScrollArea> area = d2d::ui::create_scroll_area({0, 0, 1, 1}, nullptr);
    com::ptr<d2d::ui::ITextLabel> name = make_label(L"Approaches to Moss Harbour", style.strong, style.ink);
    com::ptr<d2d::ui::ITextLabel> status = make_label(L"", style.body, style.faint_ink);
    sketch::node chart_frame = d2d::scene::create_node();
    holder chart_place{chart_frame, area};
    choice wheel_modes{[this](std::size_t which) { area->set_wheel_mode(static_cast<int>(which)); }};
};

void scrolling_page::add_chart() {
    card& sheet =
        add_card(L"Scroll area", L"Headings follow the chart one way each; name and position stay.");
    sheet.make_wide();
    sheet.node()->add_child(chart_frame);
    fill_chart();
    flow& line = sheet.add_flow();
    add_wheel_modes(line);
    add_jumps(line);
    give_rest_to(sheet.add_area(264, [this](D2D_RECT_F rect) { place_chart(rect); }));
}

void scrolling_page::place_chart(D2D_RECT_F rect) {
    const auto outline =
        sketch::rectangle(rect.left + 0.5f, rect.top + 0.5f, rect.right - 0.5f, rect.bottom - 0.5f);
    chart_frame->draw(true)->draw_geometry(outline.get(), style.edge.get(), 1, nullptr);
    chart_place.place({rect.left + 1, rect.top + 1, rect.right - 1, rect.bottom - 1});
}

void scrolling_page::fill_chart() {
    constexpr float heading = 24;
    constexpr float around = 32;
    area->set_content_bounds({0, 0, chart::size.width, chart::size.height});
    area->add_content(chart::make());
    area->set_margin_scrolled_size(top, heading);
    area->add_margin_scrolled_node(top, chart::make_letters(heading));
    area->set_margin_scrolled_size(left, around);
    area->add_margin_scrolled_node(left, chart::make_numbers(around));
    area->set_margin_fixed_size(top, around);
    area->set_margin_element(top, name, {space::small, space::small, space::small, 0});
    area->add_margin_fixed_node(top, name->get_node());
    area->set_margin_fixed_size(bottom, around);
    area->set_margin_element(bottom, status, {space::small, space::small, space::small, 0});
    area->add_margin_fixed_node(bottom, status->get_node());
    area->set_view_changed_handler([this](D2D_RECT_F view) { tell_view(view); });
}

void scrolling_page::tell_view(D2D_RECT_F view) {
    const auto number = [](float value) { return std::to_wstring(static_cast<int>(value)); };
    change_text(*status, L"From " + number(view.left) + L", " + number(view.top) + L" to " +
                             number(view.right) + L", " + number(view.bottom) + L" of " +
                             number(chart::size.width) + L", " + number(chart::size.height));
}

void scrolling_page::add_wheel_modes(flow& line) {
    line.add(make_label(L"The wheel goes", style.body));
    for (const auto* mode : {L"down", L"across", L"both ways"}) {
        const auto button = make_button(style, mode, press::latches);
        wheel_modes.add(button);
        line.add(button);
    }
}

void scrolling_page::add_jumps(flow& line) {
    line.add(make_label(L"   Go to", style.body));
    const auto jump = [&](std::wstring_view name_of_place, float x, float y) {
        const auto button = make_button(style, name_of_place);
        button->set_on_click([this, x, y](bool) { area->set_scroll_position(x, y); });
        line.add(button);
    };
    jump(L"the harbour", 0, 0);
    jump(L"the point", chart::size.width, chart::size.height);
}

void scrolling_page::add_tank() {
    card& sheet = add_card(L"Scroll bars", L"Drag the thumbs, or press beside them.");
    sheet.node()->add_child(water.node());
    sheet.add_area(tank::height, [this](D2D_RECT_F rect) { water.place(rect); });
}

void scrolling_page::add_alignment() {
    card& sheet = add_card(L"Alignment", L"Where content sits that is smaller than its view.");
    sheet.node()->add_child(small_area.node());
    sheet.add_area(alignment::height, [this](D2D_RECT_F rect) { small_area.place(rect); });
    const auto larger = make_check_box(style, L"Larger than the view");
    larger->set_on_click([this](bool checked) { small_area.enlarge(checked); });
    sheet.add_flow().add(larger);
}

}  // namespace

std::unique_ptr<page> make_scrolling_page(const look& style) {
    return std::make_unique<scrolling_page>(style);
}

}  // namespace gallery
