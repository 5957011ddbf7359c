#pragma once

#include "scene/extent.h"

namespace d2d::scene {

class node;

// How the cached rectangles of a tree follow a change.

/// What a node covers and is hit on, in its own space.
struct reach {
    extent bounds;
    extent hit;
};

/// What a node contributes to its parent's unions, in the parent's space.
struct contribution {
    extent bounds;
    extent hit;
};

/// How one part of a node's unions has changed.
struct node_change {
    part_change bounds;
    part_change hit;

    [[nodiscard]] bool none() const noexcept { return bounds.none() && hit.none(); }
};

[[nodiscard]] reach reach_of(const node& at) noexcept;
[[nodiscard]] contribution contribution_of(const node& child) noexcept;
[[nodiscard]] node_change change_between(const contribution& before, const contribution& after) noexcept;

// Each of these takes a change of one part into `at` and into all nodes above it, tells the bounds handlers
// of those whose subtree rectangle changes, and lets the view look at its clock when the root's animated
// state does.

/// `child` has been appended to the children of `at`.
void propagate_child_added(node& at, node& child);
/// `child`, as it still is, has been taken from the children of `at`.
void propagate_child_removed(node& at, node& child);
/// `child` contributed `before` to `at` and has changed.
void propagate_child_change(node& at, node& child, const contribution& before);
/// `child` reached `before` and has changed, but for its transform; it has a parent.
void propagate_reach_change(node& child, const reach& before);
/// `child` covers what it covered; whether it is animated may have changed. It has a parent.
void propagate_animation_change(node& child);
/// What `at` itself is hit on was `before`.
void propagate_own_hit_change(node& at, const extent& before);

/// The narrower climb behind a change of a child's transform, which contributed `before`: it ends where
/// neither rectangle changes.
void propagate_transform_change(node& child, const contribution& before);

/// The subtree rectangle of `at` once its own content becomes `content`.
[[nodiscard]] extent subtree_extent_with(node& at, const extent& content);

/// What `at` itself is hit on with this mode, clip geometry and recording. Throws `com::error`, ahead of any
/// change.
[[nodiscard]] extent own_hit_extent(const node& at, int hit_mode, ID2D1Geometry* clip_geometry,
                                    const extent& content);
void store_own_hit_bounds(node& at, const extent& own) noexcept;

/// Brings the subtree hit rectangle of `at` up to date behind a change of its own part.
void update_subtree_hit_bounds(node& at, const extent& own_before);

}  // namespace d2d::scene
