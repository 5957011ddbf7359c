#pragma once

#include "com/base_object.h"
#include "com/object.h"
#include "d2d/ui/ILabel.h"
#include "scene/testing/test_resources.h"

#include <functional>
#include <utility>

namespace d2d::fakes {

/// A label without content that has the rectangle and the metrics that a test gives it, writes down
/// "set_brush" for each brush that it is given, and lets a test react to what it is asked.
class fake_label : public com::base_object<com::object_base, ui::ILabel> {
public:
    explicit fake_label(D2D_RECT_F has_rect = {}, scene::fakes::log_function writes_to = {})
        : rect(has_rect), log(std::move(writes_to)) {}

    const com::ptr<scene::INode> node = scene::create_node();
    D2D_RECT_F rect;
    scene::layout::metrics measured{};
    com::ptr<scene::IBrush> brush;
    std::function<void()> on_measure;
    std::function<void()> on_arrange;
    std::function<void()> on_set_brush;

    com::ptr<scene::INode> get_node() override { return node; }
    D2D_RECT_F get_rect() override { return rect; }
    scene::layout::metrics measure() override {
        call(on_measure);
        return measured;
    }
    void arrange(D2D_RECT_F given) override {
        rect = given;
        call(on_arrange);
    }
    void set_brush(com::ptr<scene::IBrush> given) override {
        if (log) log("set_brush");
        brush = std::move(given);
        call(on_set_brush);
    }

protected:
    ~fake_label() = default;

private:
    /// It may replace itself.
    static void call(const std::function<void()>& reaction) {
        if (const auto running = reaction) running();
    }

    scene::fakes::log_function log;
};

}  // namespace d2d::fakes
