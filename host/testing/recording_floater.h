#pragma once

#include "com/object.h"
#include "d2d/scene/IDrawingContext.h"
#include "host/floater.h"
#include "scene/testing/call_text.h"
#include "scene/testing/test_visual.h"

#include <string>
#include <utility>
#include <vector>

namespace d2d::scene::fakes {

/// A floater that writes down what its window does behind its construction, one line each:
///
///     release
///     acquire 20 10
///     render 20 10 at 0.25 -0.25
///
/// that is, bitmaps that go and come with their sizes, and paintings with the place of the content's (0, 0)
/// in the window. Content has to come from `visible_content`.
class recording_floater : public floater {
public:
    using floater::floater;

    [[nodiscard]] std::vector<std::string> take_calls() { return std::exchange(calls, {}); }

    [[nodiscard]] RECT place() const {
        RECT rect{};
        GetWindowRect(get_window_handle(), &rect);
        return rect;
    }
    [[nodiscard]] std::string place_text() const {
        const RECT rect = place();
        return call_text(rect.left, rect.top, rect.right, rect.bottom);
    }

    void render(ID2D1RenderTarget* drawn_on, D2D_RECT_F invalid) override {
        floater::render(drawn_on, invalid);
        calls.push_back(call_text("render", invalid.right, invalid.bottom, "at", painted_at));
    }
    void acquire_render_target_dependant_resources(ID2D1RenderTarget* drawn_on) override {
        calls.push_back(call_text("acquire", render_target_size()));
        floater::acquire_render_target_dependant_resources(drawn_on);
    }
    void release_render_target_dependant_resources(ID2D1RenderTarget* drawn_on) override {
        calls.emplace_back("release");
        floater::release_render_target_dependant_resources(drawn_on);
    }

    /// Records a visual of these bounds into a node.
    static void record(const com::ptr<INode>& node, const D2D_RECT_F& bounds) {
        const auto visual = com::create_object<test_visual>("", bounds);
        visual->on_render = [](ID2D1RenderTarget* drawn_on) {
            D2D1_MATRIX_3X2_F matrix{};
            drawn_on->GetTransform(&matrix);
            painted_at = {matrix._31, matrix._32};
        };
        const auto context = node->draw(false);
        context->draw_visual(visual.get());
        context->commit();
    }
    /// A free node to float.
    [[nodiscard]] static com::ptr<INode> visible_content(const D2D_RECT_F& bounds) {
        auto node = create_node();
        record(node, bounds);
        return node;
    }

protected:
    ~recording_floater() = default;

private:
    static inline D2D_POINT_2F painted_at{};
    std::vector<std::string> calls;
};

}  // namespace d2d::scene::fakes
