#include "text_page.h"

#include "controls.h"
#include "d2d/ui/ILineEdit.h"
#include "d2d/ui/IPopupOptions.h"
#include "options_style.h"

#include <array>
#include <span>
#include <string>

namespace gallery {
namespace {

using label = com::ptr<d2d::ui::ITextLabel>;
using edit = com::ptr<d2d::ui::ILineEdit>;
using options = com::ptr<d2d::ui::IPopupOptions>;

constexpr float edit_width = 240;
constexpr float narrow_edit_width = 160;
constexpr float count_width = 88;
constexpr D2D_SIZE_F options_size{128, 28};

constexpr std::array<std::wstring_view, 4> ports{L"Bergen", L"Kiel", L"Malmö", L"Riga"};
constexpr std::array<std::wstring_view, 3> cargoes{L"timber", L"salt", L"herring"};

class text_page : public page {
public:
    explicit text_page(const look& colours)
        : page(colours, L"Text", L"What is typed, and what is chosen from a list that drops down.") {
        add_mirror();
        add_kinds();
        add_scripts();
        add_length();
        add_passage();
    }

private:
    void add_mirror();
    void add_kinds();
    void add_scripts();
    void add_length();
    void add_passage();
    void tell_passage();
    [[nodiscard]] edit make_edit(const wchar_t* text, bool framed, const look::format& font) const;
    static void add_edit(card& sheet, const edit& added);
    [[nodiscard]] options make_ports() const;
    [[nodiscard]] options make_cargoes() const;

    com::ptr<options_style> choosing = com::create_object<options_style>(style.card);
    options from = make_ports();
    options to = make_ports();
    options cargo = make_cargoes();
    label passage = make_label(L"", style.body);
};

edit text_page::make_edit(const wchar_t* text, bool framed, const look::format& font) const {
    return d2d::ui::create_line_edit(text, {}, framed, font.get(), nullptr);
}

// As high as its text needs.
void text_page::add_edit(card& sheet, const edit& added) {
    sheet.add_flow().add(added, {edit_width, added->measure().preferred_size.height});
}

void text_page::add_mirror() {
    card& sheet = add_card(L"Heard at each key", L"A label repeats what the edit holds.");
    const edit name = make_edit(L"Moss Harbour", true, style.body);
    const label echo = make_label(L"", style.strong, style.accent);
    const auto repeat = [echo](d2d::ui::ILineEdit& source) {
        const std::wstring text = source.get_text();
        change_text(*echo, text.empty() ? L"Nothing." : L"Ahoy, " + text + L"!");
    };
    repeat(*name);
    name->set_on_change([repeat, source = name.get()] { repeat(*source); });
    add_edit(sheet, name);
    sheet.add_flow().add(echo, {edit_width, space::usual});
}

void text_page::add_kinds() {
    card& sheet = add_card(L"With a frame and without", L"A click puts the cursor, with Shift it selects.");
    add_edit(sheet, make_edit(L"In another font", true, style.heading));
    add_edit(sheet, make_edit(L"Without a frame", false, style.body));
}

void text_page::add_scripts() {
    card& sheet = add_card(L"Any script", L"Text is Unicode.");
    for (const auto* text : {L"Größe, Öl, Möwe, Fähre, Straße", L"Гавань, маяк, якорь"})
        add_edit(sheet, make_edit(text, true, style.body));
}

void text_page::add_length() {
    card& sheet = add_card(L"Set by program", L"Buttons replace the text.");
    const edit words = make_edit(L"Fair winds", true, style.body);
    const label count = make_label(L"10 characters", style.body, style.faint_ink);
    const auto tell = [count](d2d::ui::ILineEdit& source) {
        change_text(*count, std::to_wstring(source.get_text().size()) + L" characters");
    };
    words->set_on_change([tell, source = words.get()] { tell(*source); });
    const float height = words->measure().preferred_size.height;
    sheet.add_flow().add(words, {narrow_edit_width, height}).add(count, {count_width, space::usual});
    flow& buttons = sheet.add_flow();
    for (const auto* text : {L"Fair winds", L"Man overboard", L""}) {
        const auto button = make_button(style, *text ? text : L"Nothing");
        button->set_on_click([words, tell, text](bool) {
            words->set_text(text);
            tell(*words);
        });
        buttons.add(button);
    }
}

options text_page::make_ports() const {
    const auto text = [this](std::size_t i) { return make_label(ports[i], style.body); };
    return d2d::ui::create_popup_options({0, 0, options_size.width, options_size.height},
                                         {{0, text(0)}, {1, text(1)}, {2, text(2)}, {3, text(3)}},
                                         choosing.get());
}

options text_page::make_cargoes() const {
    const auto text = [this](std::size_t i) { return make_label(cargoes[i], style.body); };
    return d2d::ui::create_popup_options({0, 0, options_size.width, options_size.height},
                                         {{0, text(0)}, {1, text(1)}, {2, text(2)}}, choosing.get());
}

void text_page::add_passage() {
    card& sheet =
        add_card(L"Popup options", L"A press beside the word opens the list, the next one chooses.");
    sheet.make_wide();
    flow& line = sheet.add_flow();
    int first = 1;
    const auto add = [&](std::wstring_view word, const options& added) {
        added->set_selected(first++ % 3);
        added->set_on_change([this](std::optional<int>) { tell_passage(); });
        line.add(make_label(word, style.body)).add_joined(added, options_size);
    };
    add(L"From", from);
    add(L"to", to);
    add(L"with", cargo);
    sheet.add_flow().add(passage, {400, space::usual});
    tell_passage();
}

void text_page::tell_passage() {
    const auto word = [](std::span<const std::wstring_view> words, const options& asked) {
        return std::wstring(words[static_cast<std::size_t>(asked->get_selected().value_or(0))]);
    };
    const std::wstring start = word(ports, from);
    const std::wstring end = word(ports, to);
    change_text(*passage, start == end ? L"The ship stays at " + start + L"."
                                       : L"The ship carries " + word(cargoes, cargo) + L" from " + start +
                                             L" to " + end + L".");
}

}  // namespace

std::unique_ptr<page> make_text_page(const look& style) {
    return std::make_unique<text_page>(style);
}

}  // namespace gallery
