// What a node offers of hit testing, dragging and focus.

#include "com/object.h"
#include "scene/hit_path.h"
#include "scene/node.h"
#include "scene/view.h"

#include <stdexcept>
#include <utility>

namespace d2d::scene {
namespace {

/// The host of a node's view. Throws `std::logic_error` when there is none.
IViewLowerEdge::ISite& site_of(const node& at) {
    if (!at.view || !at.view->get_site()) throw std::logic_error("not expected");
    return *at.view->get_site();
}

}  // namespace

bool node::enumerate_hits(D2D_POINT_2F point, bool innermost_first, hit_function function) {
    const hit_path path = hit_path::below(*this, point);
    const kept_path keep(path);
    for (std::size_t i = 0; i < path.size(); ++i) {
        const auto& entry = path[innermost_first ? path.size() - 1 - i : i];
        if (function(entry.at, entry.point)) return true;
    }
    return false;
}

bool node::drag_detect(input::mouse::button button) {
    return site_of(*this).drag_detect(view->get_last_point(), button);
}

bool node::drag_loop(input::mouse::button button, drag_function moved) {
    auto& site = site_of(*this);
    D2D_MATRIX_3X2_F from_root = identity_matrix;
    for (const node* at = this; at; at = at->parent) {
        if (at->clip_flags & has_transform) from_root = multiply(at->inverse, from_root);
    }
    return site.drag_loop(view->get_last_point(), button, from_root, std::move(moved));
}

bool node::has_focus(bool or_descendant) {
    return view && view->is_focus(*this, or_descendant);
}

void node::set_focus() {
    if (!view) throw std::runtime_error("not expected");
    view->set_focus(*this);
}

void node::release_focus() {
    if (view) view->release_focus(*this);
}

}  // namespace d2d::scene
