#pragma once

#include "outline.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace completion {

/// Sets of the plane, combined by their boundaries. All points lie on a grid fine enough to be invisible, so
/// that every decision is taken in whole numbers: edges are cut where they meet, and an edge is part of the
/// result when the result lies on one side of it alone.
class planar_overlay {
public:
    using selection = std::function<bool(bool in_first, bool in_second)>;

    /// The operands, each with its own fill mode; hollow figures count for nothing.
    planar_overlay(const outline& first, const outline& second);

    /// The closed figures around what is selected, none of which cross; filled areas lie to the right of
    /// an edge as one sees it with the y axis downward.
    [[nodiscard]] outline combined(const selection& selected) const;

private:
    struct vertex {
        std::int64_t x;
        std::int64_t y;
        friend auto operator<=>(const vertex&, const vertex&) = default;
    };

    /// Goes up the y axis, or along the x axis when level; counts how often each operand passes along it,
    /// less how often against it.
    struct edge {
        vertex from;
        vertex to;
        std::array<int, 2> passes;
    };

    struct side {
        std::array<int, 2> winding;
    };

    /// From each vertex to the next along the boundary.
    using ways = std::multimap<vertex, vertex>;

    static edge flipped(const edge& given) noexcept;
    static bool touches(vertex p, const edge& given) noexcept;
    static bool crossing(const edge& a, const edge& b, vertex& where) noexcept;
    static void meet(const edge& a, const edge& b, std::vector<vertex>& cuts_of_a,
                     std::vector<vertex>& cuts_of_b);

    /// Turned to go up; one without length is left out.
    static void append(const edge& directed, std::vector<edge>& edges);
    static void append_pieces(const edge& whole, std::vector<vertex> cuts, std::vector<edge>& pieces);
    [[nodiscard]] static ways::iterator sharpest_turn(ways& leaving, vertex previous, vertex current);
    [[nodiscard]] static std::vector<vertex> take_loop(ways& leaving);

    void add(const outline& shape, std::size_t operand);
    void cut_where_edges_meet();
    /// Whether anything was cut.
    [[nodiscard]] bool cut_once();
    /// For each edge, where others meet it.
    [[nodiscard]] std::vector<std::vector<vertex>> meetings() const;
    void merge_equal_edges();

    /// The windings on the side of lower x of an edge, or of lower y when it is level.
    [[nodiscard]] side lower_side(const edge& given) const noexcept;
    [[nodiscard]] bool inside(int winding, std::size_t operand) const noexcept;
    [[nodiscard]] std::vector<edge> boundary(const selection& selected) const;
    [[nodiscard]] outline traced(const std::vector<edge>& directed) const;

    [[nodiscard]] figure without_straight_vertices(const std::vector<vertex>& loop) const;
    [[nodiscard]] vertex on_grid(point p) const noexcept;
    [[nodiscard]] point off_grid(vertex v) const noexcept;

    std::vector<edge> edges_;
    std::array<D2D1_FILL_MODE, 2> fill_modes_;
    double scale_ = 1;
};

}  // namespace completion
