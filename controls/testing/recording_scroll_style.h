#pragma once

#include "com/object.h"
#include "d2d/factory.h"
#include "d2d/ui/IScrollAreaStyle.h"
#include "scene/testing/call_text.h"
#include "scene/testing/test_resources.h"

#include <cmath>
#include <utility>

namespace d2d::fakes {

/// A style of scroll bars and scroll areas that writes down what it is asked to draw, one line each:
///
///     thumb 0 0 14 50 0 0
///     track 100 50 116 252 0 0
///     separators 0 0 88 100 3 0 0 20
///
/// and records a rectangle for each, where it is finite.
class recording_scroll_style
    : public com::base_object<com::object_base, ui::IScrollAreaStyle, ui::IScrollBarStyle> {
public:
    explicit recording_scroll_style(scene::fakes::log_function writes_to) : log(std::move(writes_to)) {}

    /// What stands between a margin and the content.
    float gap = 1;
    /// Runs inside the drawing of separators.
    std::function<void()> on_separators;
    com::ptr<ui::IStyleSettings> settings;

    com::ptr<ui::IStyleSettings> get_settings() override { return settings; }

    void draw_thumb(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot, bool down) override {
        log(scene::fakes::call_text("thumb", rect, hot, down));
        fill(context, rect, {0, 0, 1, 1});
    }
    void draw_track(scene::IDrawingContext* context, D2D_RECT_F rect, bool hot, bool down) override {
        log(scene::fakes::call_text("track", rect, hot, down));
        fill(context, rect, {0.5f, 0.5f, 0.5f, 1});
    }

    com::ptr<ui::IScrollBarStyle> get_scroll_bar_style() override { return {this}; }
    D2D_RECT_F content_rect(D2D_RECT_F rect, D2D_RECT_F margins) override {
        const auto room = [this](float margin) { return margin > 0 ? margin + gap : 0; };
        return {rect.left + room(margins.left), rect.top + room(margins.top),
                rect.right - room(margins.right), rect.bottom - room(margins.bottom)};
    }
    void draw_separators(scene::IDrawingContext* context, D2D_RECT_F rect, D2D_RECT_F margins) override {
        log(scene::fakes::call_text("separators", rect, margins));
        fill(context, rect, {1, 0, 0, 1});
        if (on_separators) on_separators();
    }

protected:
    ~recording_scroll_style() = default;

private:
    static void fill(scene::IDrawingContext* context, const D2D_RECT_F& rect, const _D3DCOLORVALUE& color) {
        if (!std::isfinite(rect.right - rect.left) || !std::isfinite(rect.bottom - rect.top)) return;
        const auto brush = com::create_object<scene::fakes::test_brush>(color);
        context->fill_geometry(factory::create_rectangle_geometry(rect).get(), brush.get());
    }

    scene::fakes::log_function log;
};

}  // namespace d2d::fakes
