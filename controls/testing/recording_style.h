#pragma once

#include "com/base_object.h"
#include "com/object.h"
#include "d2d/factory.h"
#include "d2d/ui/IButtonStyle.h"
#include "d2d/ui/ICheckBoxStyle.h"
#include "d2d/ui/ICommandStripStyle.h"
#include "d2d/ui/IGroupBoxStyle.h"
#include "d2d/ui/ILabelStyle.h"
#include "d2d/ui/IRadioButtonStyle.h"
#include "scene/matrix.h"
#include "scene/testing/call_text.h"
#include "scene/testing/test_resources.h"

#include <string>
#include <utility>

namespace d2d::fakes {

/// The state of a control as words: "enabled hot checked".
[[nodiscard]] inline std::string state_text(bool enabled, bool hot, bool down, bool checked,
                                            bool focused = false) {
    std::string text = enabled ? "enabled" : "disabled";
    if (hot) text += " hot";
    if (down) text += " down";
    if (checked) text += " checked";
    if (focused) text += " focused";
    return text;
}

/// Base of styles that have one interface, `Interface`, write down what they are asked, one line each, and
/// paint with one brush of their own.
template <class Interface>
class recording_style : public com::base_object<com::object_base, Interface> {
public:
    explicit recording_style(scene::fakes::log_function writes_to) : log(std::move(writes_to)) {}

    const com::ptr<scene::IBrush> brush =
        com::create_object<scene::fakes::test_brush>(_D3DCOLORVALUE{0, 0, 1, 1});

    com::ptr<ui::IStyleSettings> get_settings() override { return nullptr; }

protected:
    ~recording_style() = default;

    template <class... Words>
    void write(const Words&... words) const {
        if (log) log(scene::fakes::call_text(words...));
    }

private:
    scene::fakes::log_function log;
};

/// A style of a kind of button. It puts a label's origin into the upper left corner of its place, and fills
/// the rectangle:
///
///     place_label 2 1 58 19
///     label_brush enabled hot
///     draw 0 0 60 20: enabled hot focused
template <class Interface>
class recording_button_style : public recording_style<Interface> {
public:
    using recording_style<Interface>::recording_style;

    D2D_MATRIX_3X2_F place_label(D2D_RECT_F rect, ui::ILabel*) override {
        this->write("place_label", rect);
        return scene::translation_matrix(rect.left, rect.top);
    }
    com::ptr<scene::IBrush> label_brush(bool enabled, bool hot, bool down, bool checked) override {
        this->write("label_brush", state_text(enabled, hot, down, checked));
        return this->brush;
    }
    void draw(scene::IDrawingContext* context, D2D_RECT_F rect, bool enabled, bool hot, bool down,
              bool checked, bool focused) override {
        this->write("draw",
                    scene::fakes::call_text(rect) + ": " + state_text(enabled, hot, down, checked, focused));
        context->fill_geometry(factory::create_rectangle_geometry(rect).get(), this->brush.get());
    }

protected:
    ~recording_button_style() = default;
};

/// A style of labels: "text_brush 1", "text_format".
class recording_label_style : public recording_style<ui::ILabelStyle> {
public:
    using recording_style::recording_style;

    com::ptr<scene::ITextFormat> format;  // what it answers

    com::ptr<scene::IBrush> text_brush(bool enabled) override {
        write("text_brush", enabled);
        return brush;
    }
    com::ptr<scene::ITextFormat> text_format() override {
        write("text_format");
        return format;
    }

protected:
    ~recording_label_style() = default;
};

/// A style of group boxes, which fills the rectangle: "draw 0 0 60 20 label 0 0 0 0".
class recording_group_box_style : public recording_style<ui::IGroupBoxStyle> {
public:
    using recording_style::recording_style;

    void draw(scene::IDrawingContext* context, D2D_RECT_F rect, D2D_RECT_F label_rect) override {
        write("draw", rect, "label", label_rect);
        context->fill_geometry(factory::create_rectangle_geometry(rect).get(), brush.get());
    }

protected:
    ~recording_group_box_style() = default;
};

/// A style of command strips: "outline: hot", "cell 0: enabled down". The cells are numbered as they are
/// first seen. An outline is drawn where the style of the library draws it.
class recording_strip_style : public recording_style<ui::ICommandStripStyle> {
public:
    using recording_style::recording_style;

    com::ptr<ID2D1Geometry> outline;
    std::vector<com::ptr<ID2D1Geometry>> cells;

    void draw_outline(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot,
                      bool focused) override {
        outline = shape;
        write("outline:", state_text(true, hot, false, false, focused));
        context->foreground();
        context->draw_geometry(shape, brush.get(), 1, nullptr);
    }
    void fill_background(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot,
                         bool down) override {
        write("cell", std::to_string(number_of(shape)) + ":", state_text(true, hot, down, false));
        context->fill_geometry(shape, brush.get());
    }

protected:
    ~recording_strip_style() = default;

private:
    std::size_t number_of(ID2D1Geometry* shape) {
        const auto found = std::find(cells.begin(), cells.end(), shape);
        const auto number = static_cast<std::size_t>(found - cells.begin());
        if (found == cells.end()) cells.emplace_back(shape);
        return number;
    }
};

}  // namespace d2d::fakes
