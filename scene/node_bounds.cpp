#include "scene/node_bounds.h"

#include "com/check.h"
#include "scene/node.h"
#include "scene/view.h"

namespace d2d::scene {
namespace {

void set_flag(node& at, std::uint8_t flag, bool on) noexcept {
    at.content_flags = static_cast<std::uint8_t>(on ? at.content_flags | flag : at.content_flags & ~flag);
}

/// Notes in the parent's count whether a child is animated.
void count_animated(node& parent, node& child) noexcept {
    const bool animated = (child.content_flags & node::animated_bits) != 0;
    if (animated == child.animated_in_parent) return;
    child.animated_in_parent = animated;
    animated ? ++parent.animated_children : --parent.animated_children;
}

extent united(const extent& own, const extent& others) noexcept {
    extent total = own;
    if (others.valid) total.add(others.rect);
    return total;
}

extent united_bounds(node& at, extent own) {
    if (union_tree* const tree = union_tree::of(at)) return united(own, tree->bounds());
    for (const auto& child : at.children) {
        if (const extent part = child->subtree_extent(); part.valid)
            own.add(map_rect(part.rect, child->transform));
    }
    return own;
}

extent united_hits(node& at) {
    extent total = at.hit_extent();
    if (union_tree* const tree = union_tree::of(at)) return united(total, tree->hits());
    for (const auto& child : at.children) {
        if (const extent part = child->subtree_hit_extent(); part.valid) {
            total.add(map_rect(part.rect, child->transform));
        }
    }
    return total;
}

/// Whether the change of a part changes nothing in `at`. Seen at a glance; a "no" may turn out to be a "yes".
bool unmoved_by(const node& at, const node_change& change) noexcept {
    constexpr auto both = node::has_subtree_bounds | node::has_subtree_hit_bounds;
    return !at.recompute && (at.content_flags & both) == both &&
           leaves_alone(at.subtree_bounds, change.bounds) &&
           (at.hit_mode != node::hit_by_content || leaves_alone(at.subtree_hit_bounds, change.hit));
}

/// The subtree rectangle behind the change of one part of it.
extent next_bounds(node& at, const part_change& change) {
    extent total = at.subtree_extent();
    const extent own = at.content_extent();
    return !at.recompute && replace_part(total, change, own) ? total : united_bounds(at, own);
}

/// The subtree hit rectangle behind the change of one part of it.
extent next_hits(node& at, const part_change& change, bool ask_all) {
    if (at.hit_mode == node::hit_transparent) return {};
    if (at.hit_mode == node::hit_solid) return {true, maximal_rect};
    extent total = at.subtree_hit_extent();
    return !ask_all && replace_part(total, change, at.hit_extent()) ? total : united_hits(at);
}

void store_bounds(node& at, const extent& total) noexcept {
    set_flag(at, node::has_subtree_bounds, total.valid);
    at.subtree_bounds = total.rect;
    union_tree::child_changed(at);
}

void store_hits(node& at, const extent& total) noexcept {
    set_flag(at, node::has_subtree_hit_bounds, total.valid);
    at.subtree_hit_bounds = total.rect;
    union_tree::child_changed(at);
}

/// Tells the bounds handlers of a node. They may change the tree, or throw: what lies on the way up asks all
/// its children next time.
void tell_bounds_handlers(node& at) {
    for (node* above = &at; above; above = above->parent) above->recompute = true;
    at.bounds_handlers.call(at.subtree_extent());
}

/// A reference for the time that the handlers of a node run in, which may take it from its tree.
com::ptr<node> kept_for_handlers(node& at) {
    return at.bounds_handlers.empty() ? nullptr : &at;
}

void recount_animated(node& at) noexcept {
    for (const auto& child : at.children) count_animated(at, *child);
}

/// How `at` has changed as a part of its parent since it covered `before`. Only what differs is mapped.
node_change change_since(const reach& before, const node& at) noexcept {
    const reach after = reach_of(at);
    node_change change;
    if (differs(before.bounds, after.bounds)) {
        change.bounds = {before.bounds.mapped(at.transform), after.bounds.mapped(at.transform)};
    }
    if (differs(before.hit, after.hit)) {
        change.hit = {before.hit.mapped(at.transform), after.hit.mapped(at.transform)};
    }
    return change;
}

/// Takes a change of one part of `at` into its rectangles, and tells its bounds handlers. Returns how `at`
/// has changed as a part of its parent.
node_change take_in_rectangles(node& at, const node_change& change) {
    reach before = reach_of(at);
    bool ask_all = at.recompute;
    const extent total = next_bounds(at, change.bounds);
    store_bounds(at, total);
    if (!at.bounds_handlers.empty() && differs(total, before.bounds)) {
        tell_bounds_handlers(at);
        ask_all = true;
        // The parent asks all, or a handler's own change has brought it up to date with this.
        before = reach_of(at);
    }
    store_hits(at, next_hits(at, change.hit, ask_all));
    at.recompute = false;
    return change_since(before, at);
}

/// Takes a change of one part of `at` into it.
node_change take_in(node& at, const node_change& change) {
    const bool is_shown_root = !at.parent && at.view;
    const bool animated = (at.content_flags & node::animated_bits) != 0;
    if (at.recompute) recount_animated(at);
    set_flag(at, node::children_animated, at.animated_children > 0);
    node_change own;
    if (!unmoved_by(at, change)) own = take_in_rectangles(at, change);
    if (is_shown_root && animated != ((at.content_flags & node::animated_bits) != 0) && at.view) {
        at.view->update_clock();
    }
    return own;
}

void climb(node& start, node_change change) {
    node* at = &start;
    for (;;) {
        const com::ptr<node> keep = kept_for_handlers(*at);
        change = take_in(*at, change);
        node* const above = at->parent;
        if (!above) return;
        count_animated(*above, *at);
        if (!change.hit.none()) hit_index::child_changed(*above, *at);
        at = above;
    }
}

}  // namespace

reach reach_of(const node& at) noexcept {
    return {at.subtree_extent(), at.subtree_hit_extent()};
}

contribution contribution_of(const node& child) noexcept {
    return {child.subtree_extent().mapped(child.transform),
            child.subtree_hit_extent().mapped(child.transform)};
}

node_change change_between(const contribution& before, const contribution& after) noexcept {
    return {{before.bounds, after.bounds}, {before.hit, after.hit}};
}

void propagate_child_added(node& at, node& child) {
    count_animated(at, child);
    hit_index::child_added(at, child);
    union_tree::child_added(at, child);
    climb(at, change_between({}, contribution_of(child)));
}

void propagate_child_removed(node& at, node& child) {
    if (child.animated_in_parent) {
        child.animated_in_parent = false;
        --at.animated_children;
    }
    hit_index::child_removed(at);
    union_tree::child_removed(at, child);
    climb(at, change_between(contribution_of(child), {}));
}

void propagate_child_change(node& at, node& child, const contribution& before) {
    count_animated(at, child);
    hit_index::child_changed(at, child);
    climb(at, change_between(before, contribution_of(child)));
}

void propagate_reach_change(node& child, const reach& before) {
    count_animated(*child.parent, child);
    hit_index::child_changed(*child.parent, child);
    climb(*child.parent, change_since(before, child));
}

void propagate_animation_change(node& child) {
    count_animated(*child.parent, child);
    climb(*child.parent, {});
}

void propagate_own_hit_change(node& at, const extent& before) {
    if (at.parent) hit_index::child_changed(*at.parent, at);  // what it is hit by counts, too
    climb(at, {{}, {before, at.hit_extent()}});
}

void propagate_transform_change(node& child, const contribution& before) {
    bool bounds_change = true;
    bool hit_change = true;
    node_change change = change_between(before, contribution_of(child));
    if (child.parent) hit_index::child_changed(*child.parent, child);
    com::ptr<node> keep;  // lives until the next one is known
    for (node* at = child.parent; at && (bounds_change || hit_change); at = at->parent) {
        if (unmoved_by(*at, change)) return;
        keep = kept_for_handlers(*at);
        reach at_before = reach_of(*at);
        const bool whole = bounds_change && hit_change;
        bool ask_all = at->recompute;
        if (bounds_change) {
            const extent total = next_bounds(*at, change.bounds);
            bounds_change = differs(total, at->subtree_extent());
            if (bounds_change) {
                store_bounds(*at, total);
                if (!at->bounds_handlers.empty()) {
                    tell_bounds_handlers(*at);
                    ask_all = true;
                    at_before = reach_of(*at);
                }
            }
        }
        if (hit_change) {
            const extent total = next_hits(*at, change.hit, ask_all);
            hit_change = differs(total, at->subtree_hit_extent());
            if (hit_change) {
                store_hits(*at, total);
                if (at->parent) hit_index::child_changed(*at->parent, *at);
            }
        }
        if (whole && at->recompute) {
            recount_animated(*at);
            at->recompute = false;
        }
        change = change_since(at_before, *at);
    }
}

extent subtree_extent_with(node& at, const extent& content) {
    extent total = at.subtree_extent();
    const part_change own{at.content_extent(), content};
    return !at.recompute && replace_part(total, own) ? total : united_bounds(at, content);
}

extent own_hit_extent(const node& at, int hit_mode, ID2D1Geometry* clip_geometry, const extent& content) {
    if (hit_mode == node::hit_solid) return {true, maximal_rect};
    if (hit_mode != node::hit_by_content) return {};
    if (clip_geometry) {
        extent shape{true, {}};
        com::check(clip_geometry->GetBounds(&identity_matrix, &shape.rect));
        return shape;
    }
    if (content.valid) return content;
    return at
        .hit_extent();  // kept: a node that is emptied keeps its hit area until something else recomputes it
}

void store_own_hit_bounds(node& at, const extent& own) noexcept {
    set_flag(at, node::has_hit_bounds, own.valid);
    at.hit_bounds = own.rect;
}

void update_subtree_hit_bounds(node& at, const extent& own_before) {
    store_hits(at, next_hits(at, {own_before, at.hit_extent()}, at.recompute));
}

}  // namespace d2d::scene
