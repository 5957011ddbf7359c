#pragma once

#include "com/base_object.h"
#include "com/object.h"
#include "d2d/ui/ILabel.h"
#include "scene/testing/test_resources.h"

#include <utility>

namespace d2d::fakes {

/// A label without content that has the rectangle and the metrics that a test gives it, and writes down
/// "set_brush" for each brush that it is given.
class fake_label : public com::base_object<com::object_base, ui::ILabel> {
public:
    explicit fake_label(D2D_RECT_F has_rect = {}, scene::fakes::log_function writes_to = {})
        : rect(has_rect), log(std::move(writes_to)) {}

    const com::ptr<scene::INode> node = scene::create_node();
    D2D_RECT_F rect;
    scene::layout::metrics measured{};
    com::ptr<scene::IBrush> brush;

    com::ptr<scene::INode> get_node() override { return node; }
    D2D_RECT_F get_rect() override { return rect; }
    scene::layout::metrics measure() override { return measured; }
    void arrange(D2D_RECT_F given) override { rect = given; }
    void set_brush(com::ptr<scene::IBrush> given) override {
        if (log) log("set_brush");
        brush = std::move(given);
    }

protected:
    ~fake_label() = default;

private:
    scene::fakes::log_function log;
};

}  // namespace d2d::fakes
