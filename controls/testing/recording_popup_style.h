#pragma once

#include "controls/testing/recording_style.h"
#include "d2d/ui/IPopupOptionsStyle.h"

#include <gtest/gtest.h>

namespace d2d::fakes {

/// A style of popup options, which fills what it draws:
///
///     label_brush 1 0
///     frame 10.5 20.5 69.5 39.5 r 2.5: hot focused
///     option 0 0 58 18 r 2: hot down
class recording_popup_style : public recording_style<ui::IPopupOptionsStyle> {
public:
    using recording_style::recording_style;

    const com::ptr<scene::IBrush> hot_brush =
        com::create_object<scene::fakes::test_brush>(_D3DCOLORVALUE{1, 0, 0, 1});

    com::ptr<scene::IBrush> label_brush(bool enabled, bool hot) override {
        write("label_brush", enabled, hot);
        return hot ? hot_brush : brush;
    }
    void draw_frame(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot, bool focused) override {
        write("frame", text_of(shape) + ":" + (hot ? " hot" : "") + (focused ? " focused" : ""));
        context->fill_geometry(shape, brush.get());
    }
    void draw_option(scene::IDrawingContext* context, ID2D1Geometry* shape, bool hot, bool down) override {
        write("option", text_of(shape) + ":" + (hot ? " hot" : "") + (down ? " down" : ""));
        context->fill_geometry(shape, brush.get());
    }

protected:
    ~recording_popup_style() = default;

private:
    [[nodiscard]] static std::string text_of(ID2D1Geometry* shape) {
        const com::ptr<ID2D1RoundedRectangleGeometry> rounded(shape);
        D2D1_ROUNDED_RECT outline{};
        rounded->GetRoundedRect(&outline);
        EXPECT_EQ(outline.radiusX, outline.radiusY);
        return scene::fakes::call_text(outline.rect, "r", outline.radiusX);
    }
};

}  // namespace d2d::fakes
