#pragma once

#include "scene/extent.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace d2d::scene {

class node;

/// Finds, among many children of a node, those that a point can hit: a grid over the area that the children
/// are hit on, each cell with the children that reach into it. It only leaves out children that are certain
/// to be missed, so a hit test with it finds exactly what one that asks every child finds.
///
/// A node has none until a second hit test asks for it; it follows single changes, and is thrown away when a
/// child is taken out, or when the children have changed so often since the last hit test that keeping up is
/// not worth it.
class hit_index {
public:
    /// With fewer children a hit test asks each of them.
    static constexpr std::size_t fewest_children = 24;

    explicit hit_index(node& owner);

    /// The index to use for a hit test of a node's children, or null when each is to be asked: there are few,
    /// it is the first test since a great change, or the point is reached by way of so large numbers that
    /// rounding would count. `matrix` maps the point `origin` to the node's space.
    [[nodiscard]] static hit_index* for_test(node& owner, D2D_POINT_2F origin,
                                             const D2D_MATRIX_3X2_F& matrix);

    // What a node's children tell as they change; each does nothing when the parent has no index.
    static void child_added(node& parent, node& child);
    static void child_removed(node& parent) noexcept;
    static void child_changed(node& parent, node& child);

    /// Calls `visit(number)` for the children that the point may hit, the last one first, until it returns
    /// true; returns whether it did. `visit` may not change the tree.
    template <class Visit>
    bool visit_candidates(D2D_POINT_2F point, Visit&& visit) {
        const numbers& here = cells[cell_at(point)];
        std::size_t in_cell = here.size();
        std::size_t everywhere = anywhere.size();
        while (in_cell > 0 || everywhere > 0) {
            const bool from_cell =
                everywhere == 0 || (in_cell > 0 && here[in_cell - 1] > anywhere[everywhere - 1]);
            if (visit(from_cell ? here[--in_cell] : anywhere[--everywhere])) return true;
        }
        return false;
    }

private:
    using numbers = std::vector<std::uint32_t>;  // of children, ascending

    /// The cells that a child reaches into: none, a block of them, or it may be hit anywhere.
    struct span {
        enum class kind : std::uint8_t { nowhere, cells, anywhere };
        kind reach = kind::nowhere;
        std::uint16_t left = 0;
        std::uint16_t top = 0;
        std::uint16_t right = 0;
        std::uint16_t bottom = 0;

        bool operator==(const span&) const = default;
    };

    /// One direction of the grid.
    struct axis {
        float origin = 0;
        float cells_per_unit = 0;
        std::uint16_t count = 1;

        /// The cell of a coordinate; what lies outside belongs to the cells at the edge.
        [[nodiscard]] std::uint16_t cell_of(float coordinate) const noexcept;
    };

    static void drop(node& owner) noexcept;
    [[nodiscard]] static axis make_axis(float from, float to, std::size_t cells) noexcept;
    [[nodiscard]] std::size_t cell_at(D2D_POINT_2F point) const noexcept;
    [[nodiscard]] span span_of(const node& child) const noexcept;
    void insert(std::uint32_t number, const span& where);
    void erase(std::uint32_t number, const span& where) noexcept;
    void append(node& child);
    void follow(std::uint32_t number, const span& now);

    axis across;
    axis down;
    std::vector<numbers> cells;  // row by row
    numbers anywhere;            // children that a grid cannot hold
    std::vector<span> spans;     // of each child
    std::size_t changes = 0;     // since the last hit test
};

}  // namespace d2d::scene
