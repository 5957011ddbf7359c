#include "buttons_page.h"

#include "choice.h"
#include "controls.h"
#include "harbour.h"
#include "icons.h"

#include <array>
#include <string>

namespace gallery {
namespace {

using label = com::ptr<d2d::ui::ITextLabel>;

struct freight {
    std::wstring_view name;
    std::wstring_view word;
};

constexpr std::array<freight, 3> hold{{{L"Charts", L"charts"}, {L"Lamps", L"lamps"}, {L"Ropes", L"ropes"}}};

class buttons_page : public page {
public:
    explicit buttons_page(const look& colours)
        : page(colours, L"Buttons", L"What is pressed. A button without a handler is disabled.") {
        add_boat();
        add_push_buttons();
        add_check_boxes();
        add_radio_buttons();
        add_disabled();
    }

private:
    void add_boat();
    void add_push_buttons();
    void add_check_boxes();
    void add_radio_buttons();
    void add_disabled();
    void add_helm(flow& line);
    void add_sails(flow& line);
    void add_sights(flow& line);
    void tell_what_is_aboard();
    void steer(float distance);
    void drop_anchor(bool down);

    label aboard = make_label(L"", style.body);
    std::array<bool, hold.size()> taken{true};

    label speed = make_label(L"The engine rests.", style.body);
    choice speeds{[this](std::size_t which) {
        static constexpr std::wstring_view words[] = {L"The engine rests.", L"Four knots, and quiet.",
                                                      L"Twelve knots, and a wake."};
        change_text(*speed, words[which]);
    }};

    harbour picture;
    com::ptr<d2d::ui::IButton> astern;
    com::ptr<d2d::ui::IButton> ahead;
    label position = make_label(L"", style.body, style.faint_ink);
    choice sails{[this](std::size_t which) {
        static constexpr unsigned colours[] = {0xFBF7EC, 0xC8553D, 0xF6C85F};
        picture.sail = sketch::palette::of(colours[which]);
        picture.record();
    }};
};

void buttons_page::add_boat() {
    card& sheet =
        add_card(L"A boat to handle", L"Push buttons with icons, radio buttons and check boxes, all at work.")
            .make_wide();
    sheet.node()->add_child(picture.node());
    give_rest_to(sheet.add_area(152, [this](D2D_RECT_F rect) {
        picture.place(rect);
        steer(0);
    }));
    flow& line = sheet.add_flow(space::usual);
    add_helm(line);
    add_sails(line);
    add_sights(line);
}

void buttons_page::add_push_buttons() {
    card& sheet = add_card(L"Push buttons", L"One clicks, one latches, nobody listens to the third.");
    const label count = make_label(L"Not clicked yet.", style.body);
    const auto clicks = make_button(style, L"Click me");
    clicks->set_on_click([count, times = 0](bool) mutable {
        ++times;
        change_text(*count,
                    times == 1 ? L"Clicked once." : L"Clicked " + std::to_wstring(times) + L" times.");
    });
    const label state = make_label(L"Not latched.", style.body);
    const auto latch = make_button(style, L"Latch me", press::latches);
    latch->set_on_click(
        [state](bool checked) { change_text(*state, checked ? L"Latched." : L"Not latched."); });
    sheet.add_flow().add(clicks).add(latch).add(make_button(style, L"Disabled"));
    sheet.add_flow().add(count, {128, space::usual}).add(state, {96, space::usual});
}

void buttons_page::add_check_boxes() {
    card& sheet = add_card(L"Check boxes", L"Each click sets the mark or removes it.");
    flow& line = sheet.add_flow(space::usual);
    for (std::size_t i = 0; i < hold.size(); ++i) {
        const auto box = make_check_box(style, hold[i].name);
        box->set_checked(taken[i]);
        box->set_on_click([this, i](bool checked) {
            taken[i] = checked;
            tell_what_is_aboard();
        });
        line.add(box);
    }
    const auto always = make_check_box(style, L"Life jackets");
    always->set_checked(true);
    line.add(always);
    sheet.add_flow().add(aboard, {240, space::usual});
    tell_what_is_aboard();
}

void buttons_page::tell_what_is_aboard() {
    std::wstring text = L"Aboard: life jackets";
    for (std::size_t i = 0; i < hold.size(); ++i)
        if (taken[i]) text.append(L", ").append(hold[i].word);
    change_text(*aboard, text);
}

void buttons_page::add_radio_buttons() {
    card& sheet = add_card(L"Radio buttons", L"Whoever owns them unchecks the others.");
    flow& line = sheet.add_flow(space::usual);
    for (const auto* name : {L"Stop", L"Slow", L"Full"}) {
        const auto button = make_radio_button(style, name);
        speeds.add(button);
        line.add(button);
    }
    sheet.add_flow().add(speed, {160, space::usual});
}

void buttons_page::add_disabled() {
    card& sheet = add_card(L"Enabled or not", L"What is disabled cannot be pressed.");
    const label heard = make_label(L"Silence.", style.body);
    const auto horn = make_button(style, L"Sound the horn");
    horn->set_on_click([heard, times = 0](bool) mutable {
        change_text(*heard, ++times % 2 ? L"A long blast." : L"Two short blasts.");
    });
    const auto enabled = make_check_box(style, L"Enabled");
    enabled->set_checked(true);
    enabled->set_on_click([horn](bool checked) { horn->set_enabled(checked); });
    sheet.add_flow(space::usual).add(horn).add(enabled);
    sheet.add_flow().add(heard, {128, space::usual});
}

void buttons_page::add_helm(flow& line) {
    constexpr D2D_SIZE_F square{36, space::line};
    const auto helm = [&](std::string_view icon, press kind) {
        auto button = make_button(make_icon(icon, space::usual).get(), kind);
        line.add(button, square);
        return button;
    };
    astern = helm(icons::left, press::clicks).get();
    ahead = helm(icons::right, press::clicks).get();
    astern->set_on_click([this](bool) { steer(-48); });
    ahead->set_on_click([this](bool) { steer(48); });
    helm(icons::anchor, press::latches)->set_on_click([this](bool checked) { drop_anchor(checked); });
    line.add(position, {80, space::usual});
}

void buttons_page::steer(float distance) {
    const int boat = static_cast<int>(picture.sail_by(distance));
    change_text(*position, picture.anchored ? L"At anchor" : std::to_wstring(boat) + L" m out");
}

void buttons_page::drop_anchor(bool down) {
    picture.anchored = down;
    picture.record();
    astern->set_enabled(!down);
    ahead->set_enabled(!down);
    steer(0);
}

void buttons_page::add_sails(flow& line) {
    for (const auto* name : {L"White sails", L"Red", L"Yellow"}) {
        const auto button = make_radio_button(style, name);
        sails.add(button);
        line.add(button);
    }
}

void buttons_page::add_sights(flow& line) {
    const auto sight = [&](std::wstring_view name, bool harbour::*shown) {
        const auto box = make_check_box(style, name);
        box->set_checked(true);
        box->set_on_click([this, shown](bool checked) {
            picture.*shown = checked;
            picture.record();
        });
        line.add(box);
    };
    sight(L"Sun", &harbour::sun);
    sight(L"Hills", &harbour::hills);
    sight(L"Waves", &harbour::waves);
}

}  // namespace

std::unique_ptr<page> make_buttons_page(const look& style) {
    return std::make_unique<buttons_page>(style);
}

}  // namespace gallery
