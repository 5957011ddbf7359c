#include "controls.h"

#include "icons.h"

#include <string>

namespace gallery {

namespace ui = d2d::ui;

com::ptr<ui::ITextLabel> make_label(std::wstring_view text, const look::format& font, look::brush colour) {
    auto label = ui::create_text_label(text, font.get(), nullptr);
    if (colour) label->set_brush(std::move(colour));
    return label;
}

// A new text moves a label's rectangle back to the middle of its origin.
void change_text(ui::ITextLabel& label, std::wstring_view text) {
    const D2D_RECT_F place = label.get_rect();
    label.set_text(text);
    const D2D_SIZE_F size = label.measure().preferred_size;
    label.arrange({place.left, place.top, place.left + size.width, place.top + size.height});
}

com::ptr<ui::IIconLabel> make_icon(std::string_view icon, float size, look::brush colour) {
    auto label = ui::create_icon_label(icons::geometry(icon, size).get(), nullptr);
    if (colour) label->set_brush(std::move(colour));
    return label;
}

com::ptr<ui::IPushButton> make_button(ui::ILabel* label, press kind) {
    auto button =
        ui::create_push_button(label, {0, 0, space::line, space::line}, kind == press::latches, nullptr);
    button->set_margin({12, 6, 12, 6});
    return button;
}

com::ptr<ui::IPushButton> make_button(const look& style, std::wstring_view text, press kind) {
    return make_button(make_label(text, style.body).get(), kind);
}

namespace {

// A space keeps some more distance from the mark.
com::ptr<ui::ITextLabel> make_mark_label(const look& style, std::wstring_view text) {
    return make_label(L" " + std::wstring(text), style.body);
}

}  // namespace

com::ptr<ui::ICheckBox> make_check_box(const look& style, std::wstring_view text) {
    return ui::create_check_box(make_mark_label(style, text).get(), {0, 0, space::line, space::usual},
                                nullptr);
}

com::ptr<ui::IButton> make_radio_button(const look& style, std::wstring_view text) {
    return ui::create_radio_button(make_mark_label(style, text).get(), {0, 0, space::line, space::usual},
                                   nullptr);
}

}  // namespace gallery
