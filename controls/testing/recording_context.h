#pragma once

#include "com/base_object.h"
#include "com/object.h"
#include "d2d/scene/IDrawingContext.h"
#include "scene/testing/call_text.h"
#include "scene/testing/geometry_text.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace d2d::fakes {

/// A drawing context that writes down its calls, one line each: "fill rectangle(0 0 10 10) red", "draw shape
/// blue 1 null", "foreground". A geometry that a test has given a name is written as that, another one by its
/// numbers or figures; brushes are written as the test says.
class recording_context : public com::base_object<com::object_base, scene::IDrawingContext> {
public:
    explicit recording_context(std::function<std::string(scene::IBrush*)> brush_text)
        : text_of(std::move(brush_text)) {}

    std::map<ID2D1Geometry*, std::string> names;

    /// The calls so far, which are forgotten.
    [[nodiscard]] std::vector<std::string> take_calls() { return std::exchange(calls, {}); }

    void foreground() override { calls.push_back("foreground"); }
    void background() override { calls.push_back("background"); }
    void fill_geometry(ID2D1Geometry* geometry, scene::IBrush* brush) override {
        calls.push_back("fill " + shape_text(geometry) + " " + text_of(brush));
    }
    void draw_geometry(ID2D1Geometry* geometry, scene::IBrush* brush, float width,
                       ID2D1StrokeStyle* style) override {
        calls.push_back("draw " + shape_text(geometry) + " " +
                        scene::fakes::call_text(text_of(brush), width, style ? "style" : "null"));
    }
    void draw_text_layout(float x, float y, IDWriteTextLayout*, scene::IBrush* brush,
                          D2D1_DRAW_TEXT_OPTIONS options) override {
        calls.push_back("text " + scene::fakes::call_text(x, y, text_of(brush), options));
    }
    void draw_bitmap(float x, float y, scene::IBitmap*) override {
        calls.push_back("bitmap " + scene::fakes::call_text(x, y));
    }
    void draw_visual(scene::IVisual*) override { calls.push_back("visual"); }
    void commit() override { calls.push_back("commit"); }

protected:
    ~recording_context() = default;

private:
    [[nodiscard]] std::string shape_text(ID2D1Geometry* geometry) const {
        if (const auto named = names.find(geometry); named != names.end()) return named->second;
        const std::string text = scene::fakes::geometry_text(geometry);
        return text == "geometry" ? "(" + scene::fakes::figures_text(geometry) + ")" : text;
    }

    std::function<std::string(scene::IBrush*)> text_of;
    std::vector<std::string> calls;
};

}  // namespace d2d::fakes
