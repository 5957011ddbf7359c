// How a view follows its tree: subtrees that come and go, areas that change, the need for a clock.

#include "com/object.h"
#include "scene/hit_path.h"
#include "scene/node.h"
#include "scene/rectangle.h"
#include "scene/tree_walk.h"
#include "scene/view.h"

#include <algorithm>
#include <utility>

namespace d2d::scene {

void view::enter(node& top) {
    // When something cannot be bound the subtree is in the view all the same, whole.
    struct guard {
        view* shown_in;
        node* pending;
        ~guard() {
            if (pending) walk_parents_first(*pending, [this](node& at) { at.view = shown_in; });
        }
    } unwinding{this, &top};
    walk_parents_first(top, [this](node& at) {
        at.view = this;
        if (render_target) at.bind_recording();
    });
    unwinding.pending = nullptr;
    if (render_target) invalidate(top, true);
    update_clock();
}

view::removal view::leave(node& top) {
    const com::ptr<view> shown_in = top.view;
    const com::ptr<node> above = top.parent;
    // Handlers may take it out themselves, and even put it elsewhere.
    const auto is_leaving = [&] { return top.view == shown_in && top.parent == above; };
    removal result{shown_in};
    if (shown_in->hover_target && top.is_above(*shown_in->hover_target)) {
        result.hover_target_inside = true;
        const com::ptr<node> former = std::exchange(shown_in->hover_target, nullptr);
        shown_in->end_hover(*former, shown_in->last_modifiers);
        if (!is_leaving()) return result;
    }
    const auto& path = shown_in->hover_path;
    result.on_hover_path = std::any_of(path.begin(), path.end(), [&](const auto& at) { return at == &top; });
    if (shown_in->render_target) shown_in->invalidate(top, true);
    bool handler_ran = false;
    walk_children_first(top, [&](node& at) {
        if (shown_in->focus_node == &at) {
            handler_ran = true;
            const com::ptr<node> former = std::exchange(shown_in->focus_node, nullptr);
            former->focus_handler.call(former.get(), nullptr);
        }
        if (handler_ran && !(is_leaving() && top.is_above(at))) return;
        if (at.view == shown_in) shown_in->forget(at);
    });
    return result;
}

/// A node leaves the view.
void view::forget(node& leaving) {
    if (render_target) leaving.release_recording();
    leaving.view = nullptr;
}

void view::repair(const removal& removed) {
    if (!removed.from) return;
    view& shown_in = *removed.from;
    if (removed.hover_target_inside || removed.on_hover_path) {
        hit_path path;
        if (shown_in.root) path = hit_path::from_root(*shown_in.root, shown_in.last_point);
        const kept_path keep(path);
        if (removed.on_hover_path) shown_in.update_hover(path, shown_in.last_modifiers);
        const bool still_shown = !path.empty() && path.back().at->view == &shown_in;
        if (removed.hover_target_inside && still_shown) shown_in.hover_over(path, shown_in.last_modifiers);
    }
    shown_in.update_clock();
}

void view::invalidate(const node& changed, bool with_children) {
    if (!site || !render_target) return;
    D2D_RECT_F area = with_children ? changed.subtree_bounds : changed.content_bounds;
    D2D_MATRIX_3X2_F matrix = identity_matrix;
    for (const node* at = &changed; at; at = at->parent) {
        if (at->clip_flags & node::has_transform) matrix = multiply(matrix, at->transform);
    }
    site->invalidate_rect(map_rect(area, matrix));
}

bool view::needs_clock() const noexcept {
    if (!root) return false;
    return !animated_bindings.empty() || root->counts_as_animated() ||
           (root->content_flags & node::animated_bits) != 0;
}

void view::update_clock() {
    const bool needed = needs_clock();
    if (needed == clock_running) return;
    clock_running = needed;
    if (render_target && site) site->set_animation_clock(0.0, needed ? clock_interval : 0.0);
}

void view::add_animated_binding(animated_binding_list::node& binding) {
    animated_bindings.push_front(binding);
    update_clock();
}

void view::remove_animated_binding(animated_binding_list::node& binding) {
    binding.unlink();
    update_clock();
}

}  // namespace d2d::scene
