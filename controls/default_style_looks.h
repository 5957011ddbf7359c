#pragma once

#include "controls/default_style_base.h"
#include "d2d/ui/IButtonStyle.h"
#include "d2d/ui/ICheckBoxStyle.h"
#include "d2d/ui/ICommandStripStyle.h"
#include "d2d/ui/IGroupBoxStyle.h"
#include "d2d/ui/ILabelStyle.h"
#include "d2d/ui/ILineEditStyle.h"
#include "d2d/ui/IPopupOptionsStyle.h"
#include "d2d/ui/IRadioButtonStyle.h"
#include "d2d/ui/IScrollAreaStyle.h"
#include "d2d/ui/IScrollBarStyle.h"

namespace d2d {

// The default style interface by interface. Several of the interfaces have operations of the same name and
// parameters, of which one class could override only all together; so each has a class here, and the style is
// put together from these.

/// Base of the looks: `Interface` of a style that tells where its values are.
template <class Interface>
class style_look : public Interface {
public:
    using style_interface = Interface;

protected:
    ~style_look() = default;

    [[nodiscard]] virtual const default_style_base& base() const noexcept = 0;
};

class default_button_style : public style_look<ui::IButtonStyle> {
public:
    D2D_MATRIX_3X2_F place_label(D2D_RECT_F rect, ui::ILabel* label) override;
    com::ptr<scene::IBrush> label_brush(bool enabled, bool hot, bool down, bool checked) override;
    void draw(scene::IDrawingContext* context, D2D_RECT_F rect, bool enabled, bool hot, bool down,
              bool checked, bool focused) override;

protected:
    ~default_button_style() = default;
};

/// What check boxes and radio buttons have in common: a mark at the left end, as wide as it is high, and the
/// label beside it.
template <class Interface>
class default_mark_style : public style_look<Interface> {
public:
    D2D_MATRIX_3X2_F place_label(D2D_RECT_F rect, ui::ILabel* label) override;
    com::ptr<scene::IBrush> label_brush(bool enabled, bool hot, bool down, bool checked) override;

protected:
    ~default_mark_style() = default;
};

class default_check_box_style : public default_mark_style<ui::ICheckBoxStyle> {
public:
    void draw(scene::IDrawingContext* context, D2D_RECT_F rect, bool enabled, bool hot, bool down,
              bool checked, bool focused) override;

protected:
    ~default_check_box_style() = default;
};

class default_radio_button_style : public default_mark_style<ui::IRadioButtonStyle> {
public:
    void draw(scene::IDrawingContext* context, D2D_RECT_F rect, bool enabled, bool hot, bool down,
              bool checked, bool focused) override;

protected:
    ~default_radio_button_style() = default;
};

class default_label_style : public style_look<ui::ILabelStyle> {
public:
    com::ptr<scene::IBrush> text_brush(bool enabled) override;
    com::ptr<scene::ITextFormat> text_format() override;

protected:
    ~default_label_style() = default;
};

class default_line_edit_style : public style_look<ui::ILineEditStyle> {
public:
    com::ptr<scene::IBrush> text_brush(bool enabled) override;
    com::ptr<scene::IBrush> selection_background_brush() override;
    _D3DCOLORVALUE selected_text_color() override;
    com::ptr<scene::ITextFormat> text_format() override;
    D2D_SIZE_F padding() override { return {4, 4}; }
    D2D_SIZE_F text_inset() override { return {2, 2}; }
    void draw_frame(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot, bool focused) override;

protected:
    ~default_line_edit_style() = default;
};

class default_command_strip_style : public style_look<ui::ICommandStripStyle> {
public:
    void draw_outline(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot, bool focused) override;
    void fill_background(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot, bool down) override;

protected:
    ~default_command_strip_style() = default;
};

class default_popup_options_style : public style_look<ui::IPopupOptionsStyle> {
public:
    com::ptr<scene::IBrush> label_brush(bool enabled, bool hot) override;
    void draw_frame(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot, bool focused) override;
    void draw_option(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot, bool down) override;

protected:
    ~default_popup_options_style() = default;
};

class default_scroll_bar_style : public style_look<ui::IScrollBarStyle> {
public:
    void draw_thumb(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot, bool down) override;
    void draw_track(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot, bool down) override;

protected:
    ~default_scroll_bar_style() = default;
};

/// Leaves the style of the bars to the class that has one.
class default_scroll_area_style : public style_look<ui::IScrollAreaStyle> {
public:
    D2D_RECT_F content_rect(D2D_RECT_F rect, D2D_RECT_F margins) override;
    void draw_separators(scene::IDrawingContext* context, D2D_RECT_F rect, D2D_RECT_F margins) override;

protected:
    ~default_scroll_area_style() = default;
};

class default_group_box_style : public style_look<ui::IGroupBoxStyle> {
public:
    void draw(scene::IDrawingContext* context, D2D_RECT_F rect, D2D_RECT_F label_rect) override;

protected:
    ~default_group_box_style() = default;
};

}  // namespace d2d

/// A look answers for its interface.
template <class Look>
requires requires {
    typename Look::style_interface;
}
struct com::interface_traits<Look> : com::interface_traits<typename Look::style_interface> {};
