#pragma once

#include "scene/tree_walk.h"

#include <array>
#include <cstddef>

namespace d2d::scene {

/// A node and those above it, the node first. Keeps them alive while handlers run; lies on the stack.
class node_chain {
public:
    explicit node_chain(node& bottom) {
        for (node* at = &bottom; at && count < nodes.size(); at = at->parent) nodes[count++] = at;
    }

    [[nodiscard]] std::size_t size() const noexcept { return count; }
    [[nodiscard]] node& operator[](std::size_t index) const noexcept { return *nodes[index]; }

    /// Calls `visit(node&, depth)` from the root down to the node above the bottom with negative depths, then
    /// from the bottom, with 0, back up to the root. The first true ends it; returns whether there was one.
    template <class Visit>
    bool route(Visit&& visit) const {
        for (std::size_t i = count; i-- > 1;) {
            if (visit(*nodes[i], -static_cast<int>(i))) return true;
        }
        for (std::size_t i = 0; i < count; ++i) {
            if (visit(*nodes[i], static_cast<int>(i))) return true;
        }
        return false;
    }

private:
    std::array<com::ptr<node>, maximal_depth> nodes;
    std::size_t count = 0;
};

}  // namespace d2d::scene
