#pragma once

#include "com/object.h"
#include "d2d/IViewLowerEdge.h"
#include "d2d/scene/IView.h"
#include "scene/node.h"
#include "scene/testing/fake_site.h"
#include "scene/testing/recording_render_target.h"
#include "scene/testing/test_resources.h"
#include "scene/testing/test_visual.h"
#include "support/leak_checked_test.h"

#include <string>
#include <vector>

namespace d2d::scene::fakes {

/// A fixture: a view on a fake host, a recording target, and a node to be its root. At the end of a test no
/// object of the library may be left, and none that a target made.
class scene_test : public test_support::leak_checked_test {
protected:
    using lines = std::vector<std::string>;

    static constexpr _D3DCOLORVALUE red{1, 0, 0, 1};
    static constexpr _D3DCOLORVALUE green{0, 1, 0, 1};
    static constexpr _D3DCOLORVALUE blue{0, 0, 1, 1};

    void SetUp() override {
        leak_checked_test::SetUp();
        view = create_view();
        edge = com::ptr<IViewLowerEdge>(view);
        edge->attach_site(&site);
        root = create_node();
    }

    void TearDown() override {
        view->set_root(nullptr);
        edge->detach_render_target(nullptr);
        edge->detach_site(&site);
        root.reset();
        edge.reset();
        view.reset();
        EXPECT_EQ(0, target.live_brushes());
        EXPECT_EQ(0, target.live_bitmaps());
        EXPECT_EQ(0u, target.references());
        leak_checked_test::TearDown();
    }

    /// Shows the root on the target. Nothing of it stays written down.
    void show() {
        edge->attach_render_target(&target);
        view->set_root(root);
        forget();
    }

    void forget() {
        site.calls.clear();
        static_cast<void>(target.take_calls());
    }

    /// What painting all of the tree asks of the target.
    [[nodiscard]] lines painted(const D2D_MATRIX_3X2_F& matrix = {{{1, 0, 0, 1, 0, 0}}}) {
        static_cast<void>(target.take_calls());
        edge->render({0, 0, 100, 100}, matrix);
        return target.take_calls();
    }

    /// A log beside the host's calls: damage, visuals and handlers in one order.
    [[nodiscard]] log_function host_log() {
        return [this](std::string line) { site.calls.push_back(std::move(line)); };
    }
    /// A log beside the target's calls.
    [[nodiscard]] log_function target_log() {
        return [this](std::string line) { target.note(std::move(line)); };
    }

    [[nodiscard]] static com::ptr<test_brush> make_brush(const _D3DCOLORVALUE& color) {
        return com::create_object<test_brush>(color);
    }
    [[nodiscard]] com::ptr<test_visual> make_visual(std::string name, const D2D_RECT_F& bounds) {
        return com::create_object<test_visual>(std::move(name), bounds, host_log());
    }

    /// Records one filled rectangle.
    static void fill(const com::ptr<INode>& node, const D2D_RECT_F& rect, const _D3DCOLORVALUE& color = red) {
        const auto context = node->draw(false);
        fill(*context.get(), rect, color);
        context->commit();
    }
    static void fill(IDrawingContext& context, const D2D_RECT_F& rect, const _D3DCOLORVALUE& color = red) {
        context.fill_geometry(factory::create_rectangle_geometry(rect).get(), make_brush(color).get());
    }

    /// The node behind its interface.
    [[nodiscard]] static node& inside(const com::ptr<INode>& of) { return static_cast<node&>(*of); }

    const factory graphics;
    fake_site site;
    recording_render_target target;
    com::ptr<IView> view;
    com::ptr<IViewLowerEdge> edge;
    com::ptr<INode> root;
};

}  // namespace d2d::scene::fakes
