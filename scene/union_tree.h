#pragma once

#include "scene/extent.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace d2d::scene {

class node;

/// Unites what many children of a node cover, and are hit on, without asking each of them every time: a tree
/// of unions over the children, of which a change marks a path, and a question works out what is marked.
///
/// A node has one from the first time that all of its children are asked for, until they have become few. Its
/// children tell it whenever their rectangles or transforms are stored, so it is right in the midst of a
/// change, too.
class union_tree {
public:
    /// With fewer children each is asked.
    static constexpr std::size_t fewest_children = 64;

    explicit union_tree(node& owner);

    /// The tree to ask, or null when there are few children.
    [[nodiscard]] static union_tree* of(node& owner);

    // What children tell; each does nothing when the parent has no tree.
    static void child_added(node& parent, node& child);
    static void child_removed(node& parent, node& child) noexcept;
    static void child_changed(const node& child) noexcept;

    /// In the space of the node.
    [[nodiscard]] extent bounds() { return united(&reaches::bounds); }
    [[nodiscard]] extent hits() { return united(&reaches::hit); }

private:
    static constexpr std::size_t width = 16;  // of the tree: how many parts a union has

    struct reaches {
        extent bounds;
        extent hit;
        bool is_marked = false;  // to be worked out; so are all unions above then

        void add(const extent& more_bounds, const extent& more_hit) noexcept;
    };
    using level = std::vector<reaches>;

    void insert(node& child);
    void erase(const node& child) noexcept;
    void mark(std::size_t slot) noexcept;
    void work_out(std::size_t height, std::size_t index) noexcept;
    [[nodiscard]] extent united(extent reaches::*which) noexcept;

    std::vector<node*> children;  // in slots: null where one is free
    std::vector<std::uint32_t> free_slots;
    std::vector<level> levels;  // each unites groups of the one before, the first one groups of children
};

}  // namespace d2d::scene
