#include "controls/text_label.h"

#include "com/object.h"
#include "controls/text_extent.h"

#include <utility>

namespace d2d {
namespace {

template <class Character>
com::ptr<ui::ITextLabel> make_text_label(std::basic_string_view<Character> text, scene::ITextFormat* format,
                                         IUnknown* style) {
    auto label = com::create_object<text_label>(format, style);
    if (!text.empty()) label->set_text(text);
    return label;
}

}  // namespace

scene::layout::metrics text_label::measure() {
    if (!layout) return {};
    const D2D_SIZE_F size = pixel_extent(*layout);
    return {{}, size, size, size};
}

void text_label::arrange(D2D_RECT_F new_rect) {
    tell_watcher();
    rect = new_rect;
    redraw();
}

void text_label::set_text(std::string_view text) {
    lay_out(text);
}

void text_label::set_text(std::wstring_view text) {
    lay_out(text);
}

template <class Character>
void text_label::lay_out(std::basic_string_view<Character> text) {
    const auto format = text_format ? text_format : style->text_format();
    auto new_layout = format->create_layout(text, 0, 0);
    const auto [width, height] = text_extent(*new_layout);
    tell_watcher();
    layout = std::move(new_layout);
    rect.left = -width * 0.5f;
    rect.top = -height * 0.5f;
    rect.right = rect.left + width;
    rect.bottom = rect.top + height;
    redraw();
}

bool text_label::watch(label_watcher& by) noexcept {
    if (watcher) return false;
    watcher = &by;
    return true;
}

void text_label::tell_watcher() {
    if (watcher) watcher->label_changed();
}

void text_label::redraw() {
    const auto painted_with = effective_brush();
    const auto context = node->draw(false);
    if (layout) {
        context->draw_text_layout(rect.left, rect.top, layout.get(), painted_with.get(),
                                  D2D1_DRAW_TEXT_OPTIONS_NONE);
    }
    context->commit();
}

com::ptr<ui::ITextLabel> ui::create_text_label(std::string_view text, scene::ITextFormat* format,
                                               IUnknown* style) {
    return make_text_label(text, format, style);
}

com::ptr<ui::ITextLabel> ui::create_text_label(std::wstring_view text, scene::ITextFormat* format,
                                               IUnknown* style) {
    return make_text_label(text, format, style);
}

}  // namespace d2d
