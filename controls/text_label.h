#pragma once

#include "com/IObjectInternal.h"
#include "controls/label_impl.h"
#include "controls/label_watcher.h"
#include "d2d/ui/ITextLabel.h"

#include <string_view>

namespace d2d {

class text_label;

}  // namespace d2d

template <>
struct com::interface_traits<com::IObjectInternal<d2d::text_label>> : com::extends<> {
    static constexpr GUID id = com::guid("20BD527A-85CD-4890-A4BF-BA24D1C8E8E4");
};

namespace d2d {

class text_label : public label_impl<text_label, ui::ITextLabel, com::IObjectInternal<text_label>> {
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

    /// Tells a watcher, which is borrowed, of each new text and place. False when there is one already.
    [[nodiscard]] bool watch(label_watcher& by) noexcept;
    void end_watch() noexcept { watcher = nullptr; }

protected:
    ~text_label() = default;

private:
    template <class Character>
    void lay_out(std::basic_string_view<Character> text);
    void tell_watcher();

    const com::ptr<scene::ITextFormat> text_format;  // null: the style's
    com::ptr<IDWriteTextLayout> layout;              // null until there is text
    label_watcher* watcher = nullptr;
};

}  // namespace d2d
