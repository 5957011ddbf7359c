#pragma once

#include "controls/testing/recording_style.h"
#include "d2d/ui/ILineEditStyle.h"
#include "scene/rectangle.h"

#include <stdexcept>
#include <string>

namespace d2d::fakes {

/// A style of line edits that writes down what it is asked: "text_brush 1", "draw_frame 0 0 60 20 hot 0
/// focused 1". Sizes are nothing that a text could have by chance; the frame is a blue line, selected text is
/// yellow on green. Its brush for text is red, which nothing may paint with.
class recording_line_edit_style : public recording_style<ui::ILineEditStyle> {
public:
    explicit recording_line_edit_style(scene::fakes::log_function writes_to)
        : recording_style(std::move(writes_to)) {}

    static constexpr D2D_SIZE_F padding_size{7, 5};
    static constexpr D2D_SIZE_F inset_size{3, 2};
    static constexpr _D3DCOLORVALUE selected_color{1, 1, 0, 1};

    com::ptr<scene::ITextFormat> format;  // what it answers
    std::string missing;                  // the operation that finds no key

    com::ptr<scene::IBrush> text_brush(bool enabled) override {
        tell("text_brush", enabled);
        return red;
    }
    com::ptr<scene::IBrush> selection_background_brush() override {
        tell("selection_background_brush");
        return green;
    }
    _D3DCOLORVALUE selected_text_color() override {
        tell("selected_text_color");
        return selected_color;
    }
    com::ptr<scene::ITextFormat> text_format() override {
        tell("text_format");
        return format;
    }
    D2D_SIZE_F padding() override { return padding_size; }
    D2D_SIZE_F text_inset() override { return inset_size; }
    void draw_frame(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot, bool focused) override {
        tell("draw_frame", rect, "hot", hot, "focused", focused);
        const auto line = factory::create_rectangle_geometry(scene::inset(rect, 0.5f));
        context->draw_geometry(line.get(), brush.get(), 1, nullptr);
    }

protected:
    ~recording_line_edit_style() = default;

private:
    template <class... Words>
    void tell(const char* operation, const Words&... words) const {
        write(operation, words...);
        if (missing == operation) throw std::logic_error("unrecognized style identifier");
    }

    const com::ptr<scene::IBrush> red =
        com::create_object<scene::fakes::test_brush>(_D3DCOLORVALUE{1, 0, 0, 1});
    const com::ptr<scene::IBrush> green =
        com::create_object<scene::fakes::test_brush>(_D3DCOLORVALUE{0, 1, 0, 1});
};

}  // namespace d2d::fakes
