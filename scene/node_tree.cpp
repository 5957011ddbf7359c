// Parents and children.

#include "com/object.h"
#include "scene/node.h"
#include "scene/node_bounds.h"
#include "scene/tree_walk.h"
#include "scene/view.h"

#include <stdexcept>
#include <utility>
#include <vector>

namespace d2d::scene {
namespace {

/// Counts one chain of animated nodes more, or less, in `at`; in the nodes above too for as long as that
/// decides whether the one below counts as animated.
void count_animation(node* at, int change) noexcept {
    for (; at; at = at->parent) {
        const bool before = at->counts_as_animated();
        at->animated_nodes += change;
        if (at->counts_as_animated() == before) return;
    }
}

/// Where a child stands, or the end. Looked for from both ends: rows that go one by one begin at either.
std::vector<com::ptr<node>>::iterator find_child(std::vector<com::ptr<node>>& children,
                                                 const node& wanted) noexcept {
    auto first = children.begin();
    auto last = children.end();
    while (first != last) {
        if (first->get() == &wanted) return first;
        ++first;
        if (first == last) break;
        --last;
        if (last->get() == &wanted) return last;
    }
    return children.end();
}

com::ptr<node> expected_node(const com::ptr<INode>& given) {
    if (!given) throw std::logic_error("unexpected");
    return com::internal_object<node>(given.get());
}

}  // namespace

bool node::is_ancestor_of(com::ptr<INode> other) {
    return other && is_above(*com::internal_object<node>(other.get()));
}

bool node::is_above(const node& other) const noexcept {
    for (const node* at = &other; at; at = at->parent) {
        if (at == this) return true;
    }
    return false;
}

void node::add_child(com::ptr<INode> child) {
    com::ptr<node> reference = expected_node(child);
    node& added = *reference;  // `child` keeps it while handlers run
    if (added.view || added.parent || added.is_above(*this)) throw std::logic_error("unexpected");
    children.push_back(std::move(reference));
    added.parent = this;
    if (added.counts_as_animated()) count_animation(this, 1);
    propagate_child_added(*this, added);
    // Handlers that heard of the bounds may have taken the child away again.
    if (view && added.parent == this && !added.view) view->enter(added);
}

bool node::remove_child(com::ptr<INode> child) {
    const com::ptr<node> keep = this;
    const com::ptr<node> removed = expected_node(child);
    if (removed->parent != this) return false;
    // The view has let go of a child already when a handler hears that its parent is leaving.
    const bool is_shown = removed->view != nullptr;
    if (is_shown && removed->view != view) throw std::logic_error("unexpected");
    if (find_child(children, *removed) == children.end()) throw std::logic_error("not a child");
    view::removal shown;
    if (is_shown) shown = view::leave(*removed);
    // Looked for again: handlers that heard of the leaving may have changed the list.
    const auto place = find_child(children, *removed);
    if (place != children.end()) {
        removed->parent = nullptr;
        children.erase(place);
        if (removed->counts_as_animated()) count_animation(this, -1);
        propagate_child_removed(*this, *removed);
    }
    view::repair(shown);
    return true;
}

void node::clear() {
    const com::ptr<node> keep = this;
    if (in_view_with_target() && (content_flags & has_subtree_bounds)) view->invalidate(*this, true);
    const com::ptr<node> above = parent;
    const contribution before = contribution_of(*this);
    if (counts_as_animated()) count_animation(parent, -1);
    walk_children_first(*this, [this](node& at) {
        if (at.in_view_with_target()) at.release_recording();
        at.reset();
        if (&at != this) at.view = nullptr;
    });
    if (above) propagate_child_change(*above, *this, before);
    if (view) view->update_clock();
}

void node::reset() noexcept {
    union_tree::child_changed(*this);
    user_value = 0;
    user_object.reset();
    handlers.clear();
    key_handler.reset();
    char_handler.reset();
    focus_handler.reset();
    clip_geometry.reset();
    bounds_handlers.clear();
    foreground.clear();
    background.clear();
    effect.reset();
    clip_flags = 0;
    transform = inverse = identity_matrix;
    content_flags = 0;
    hit_bounds = subtree_hit_bounds = content_bounds = subtree_bounds = {};
    hit_mode = hit_by_content;
    transform_animation.reset();
    animated_nodes = 0;
    animated_children = 0;
    recompute = false;
    for (const auto& child : children) {
        child->parent = nullptr;
        child->animated_in_parent = false;
    }
    children.clear();
    lookup.reset();
}

void node::set_transform_animation(IValueAnimation<D2D_MATRIX_3X2_F>* animation) {
    const bool before = counts_as_animated();
    transform_animation = animation;
    const bool after = counts_as_animated();
    if (before == after) return;
    count_animation(parent, after ? 1 : -1);
    if (view) view->update_clock();
}

}  // namespace d2d::scene
