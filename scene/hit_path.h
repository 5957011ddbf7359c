#pragma once

#include "scene/tree_walk.h"

#include <array>
#include <cstddef>

namespace d2d::scene {

/// The way from a root to the node that is hit at a point, root first, with the point in each node's space.
/// Lies on the stack, allocates nothing. Its nodes are borrowed: see `kept_path`.
class hit_path {
public:
    struct entry {
        bool hit = false;
        node* at = nullptr;
        D2D_POINT_2F point{};
    };

    /// The path below and including `root` to what is hit at a point of the root's parent space.
    [[nodiscard]] static hit_path from_root(node& root, D2D_POINT_2F point);
    /// The path below `top`, without it, to what is hit at a point of its space.
    [[nodiscard]] static hit_path below(node& top, D2D_POINT_2F point);

    [[nodiscard]] bool empty() const noexcept { return count == 0; }
    [[nodiscard]] std::size_t size() const noexcept { return count; }
    [[nodiscard]] const entry& operator[](std::size_t index) const noexcept { return entries[index]; }
    [[nodiscard]] const entry& back() const noexcept { return entries[count - 1]; }
    [[nodiscard]] const entry* begin() const noexcept { return entries.data(); }
    [[nodiscard]] const entry* end() const noexcept { return entries.data() + count; }

private:
    bool search(node& at, D2D_POINT_2F origin, const D2D_MATRIX_3X2_F& outer);
    bool search_children(node& at, D2D_POINT_2F origin, const D2D_MATRIX_3X2_F& matrix);

    std::array<entry, maximal_depth> entries;
    std::size_t count = 0;
};

/// Keeps the nodes of a path alive while handlers run, which may change the tree.
class kept_path {
public:
    explicit kept_path(const hit_path& path) {
        for (std::size_t i = 0; i < path.size(); ++i) nodes[i] = path[i].at;
    }

private:
    std::array<com::ptr<node>, maximal_depth> nodes;
};

}  // namespace d2d::scene
