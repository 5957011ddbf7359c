#pragma once

#include "controls/label_impl.h"
#include "d2d/ui/ITextLabel.h"

#include <string_view>

namespace d2d {

class text_label : public label_impl<text_label, ui::ITextLabel> {
public:
    text_label(scene::ITextFormat* format, IUnknown* style_source)
        : label_impl(style_source), text_format(format) {}

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;
    // ITextLabel
    void set_text(std::string_view text) override;
    void set_text(std::wstring_view text) override;

    void redraw();

protected:
    ~text_label() = default;

private:
    template <class Character>
    void lay_out(std::basic_string_view<Character> text);

    const com::ptr<scene::ITextFormat> text_format;  // null: the style's
    com::ptr<IDWriteTextLayout> layout;              // null until there is text
};

}  // namespace d2d
