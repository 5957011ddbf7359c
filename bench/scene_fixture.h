#pragma once

#include "com/object.h"
#include "d2d/IViewLowerEdge.h"
#include "d2d/factory.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/IView.h"
#include "idle_target.h"

#include <vector>

#include <wincodec.h>

namespace bench {

/// A host that takes every request as done.
class idle_site : public com::base_object<com::object_base, d2d::IViewLowerEdge::ISite> {
public:
    HRESULT STDMETHODCALLTYPE QueryService(const GUID&, const GUID&, void**) override {
        return E_NOINTERFACE;
    }
    bool request_focus() override { return true; }
    double get_current_time() const override { return 0; }
    void set_animation_clock(double, double) override {}
    void bounds_changed(D2D_RECT_F) override {}
    void invalidate_rect(D2D_RECT_F) override { ++invalidations; }
    bool drag_detect(D2D_POINT_2F, d2d::input::mouse::button) override { return false; }
    bool drag_loop(D2D_POINT_2F, d2d::input::mouse::button, D2D_MATRIX_3X2_F,
                   std::function<bool(D2D_POINT_2F)>) override {
        return false;
    }

    std::size_t invalidations = 0;

protected:
    ~idle_site() = default;
};

/// A view with a host and a target, and what its leaves are made of.
class scene_fixture {
public:
    enum class target_kind { idle, drawing };

    explicit scene_fixture(target_kind kind = target_kind::idle);
    scene_fixture(const scene_fixture&) = delete;
    scene_fixture& operator=(const scene_fixture&) = delete;
    ~scene_fixture();

    /// A leaf with a filled rectangle of 10 by 10 at (x, y).
    [[nodiscard]] com::ptr<d2d::scene::INode> make_leaf(float x, float y) const;
    /// 100 groups of 100 leaves, not yet in the view.
    [[nodiscard]] com::ptr<d2d::scene::INode> make_groups() const;
    /// A parent of `count` leaves in a square.
    [[nodiscard]] com::ptr<d2d::scene::INode> make_flat(std::size_t count) const;
    /// Replaces the recording of a leaf by one just like it.
    void record(d2d::scene::INode& leaf) const;

    void show(com::ptr<d2d::scene::INode> root) { view->set_root(std::move(root)); }
    void paint();
    [[nodiscard]] d2d::IViewLowerEdge& lower_edge() const { return *edge; }

private:
    d2d::factory graphics;
    com::ptr<ID2D1RectangleGeometry> square;
    com::ptr<d2d::scene::IBrush> brush;
    com::ptr<IWICBitmap> bitmap;
    com::ptr<ID2D1RenderTarget> target;
    com::ptr<idle_site> site;
    com::ptr<d2d::scene::IView> view;
    com::ptr<d2d::IViewLowerEdge> edge;
};

/// The length of a row when `count` leaves lie in a square.
[[nodiscard]] std::size_t side_of(std::size_t count);

/// A parent and its leaves.
struct leaf_list {
    com::ptr<d2d::scene::INode> parent;
    std::vector<com::ptr<d2d::scene::INode>> leaves;
};

/// A parent of `count` leaves in a square.
[[nodiscard]] leaf_list make_leaf_list(const scene_fixture& fixture, std::size_t count);

}  // namespace bench
