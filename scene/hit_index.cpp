#include "scene/hit_index.h"

#include "scene/node.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace d2d::scene {
namespace {

constexpr std::size_t most_cells_of_a_child = 64;
constexpr double most_cells_of_an_axis = 4096;

/// How much the way into a child's space and back may magnify an error of rounding.
constexpr float greatest_magnification = 16;
/// Of a sum of this size the rounding, magnified, stays well below a pixel.
constexpr float greatest_sum = 30'000;
/// By how much the area of a child far out is larger than a pixel more, for each pixel of its distance.
constexpr float slack_of_distance = 1e-4f;

/// Where a child can be hit, in its parent's space, or the whole plane.
struct hit_area {
    bool bounded = true;
    D2D_RECT_F rect{};
};

float largest_of(const D2D_MATRIX_3X2_F& m) noexcept {
    return std::max({std::fabs(m._11), std::fabs(m._12), std::fabs(m._21), std::fabs(m._22)});
}

bool is_finite(const D2D_RECT_F& rect) noexcept {
    return std::isfinite(rect.left) && std::isfinite(rect.top) && std::isfinite(rect.right) &&
           std::isfinite(rect.bottom);
}

/// A hit test maps the point into the child's space; here the child's rectangle is mapped out of it. The two
/// differ by rounding, more so for matrices that magnify it: the area is larger by a pixel for that, and
/// without a bound where a pixel may not do.
hit_area area_of(const node& child, const D2D_RECT_F& reach) noexcept {
    // A shape is asked with a tolerance, beyond its bounds; a solid node takes every point.
    if (child.clip_geometry || child.hit_mode == node::hit_solid) return {false};
    if (2 * largest_of(child.transform) * largest_of(child.inverse) > greatest_magnification) return {false};
    const D2D_RECT_F rect = map_rect(reach, child.transform);
    if (!is_finite(rect)) return {false};
    const float size =
        std::max({std::fabs(rect.left), std::fabs(rect.top), std::fabs(rect.right), std::fabs(rect.bottom),
                  std::fabs(child.transform._31), std::fabs(child.transform._32)});
    const float slack = 1 + size * slack_of_distance;
    return {true, {rect.left - slack, rect.top - slack, rect.right + slack, rect.bottom + slack}};
}

}  // namespace

std::uint16_t hit_index::axis::cell_of(float coordinate) const noexcept {
    const float cell = (coordinate - origin) * cells_per_unit;
    const float last = static_cast<float>(count - 1);
    if (!(cell > 0)) return 0;
    return static_cast<std::uint16_t>(cell < last ? cell : last);
}

hit_index::axis hit_index::make_axis(float from, float to, std::size_t cell_count) noexcept {
    const float length = to - from;
    if (!std::isfinite(length) || !(length > 0)) return {};
    const float count = static_cast<float>(cell_count);
    return {from, count / length, static_cast<std::uint16_t>(cell_count)};
}

hit_index::hit_index(node& owner) {
    D2D_RECT_F whole = owner.subtree_hit_bounds;
    if (!is_finite(whole) || owner.hit_mode == node::hit_solid) whole = owner.subtree_bounds;
    // Cells about as wide as high, whatever the shape of the whole: a long list has small ones, too.
    const double wanted = static_cast<double>(owner.children.size()) / 2;
    const double width = std::max(1.0, static_cast<double>(whole.right) - static_cast<double>(whole.left));
    const double height = std::max(1.0, static_cast<double>(whole.bottom) - static_cast<double>(whole.top));
    const double shape = std::isfinite(width / height) ? width / height : 1;
    const double columns = std::clamp(std::sqrt(wanted * shape), 1.0, most_cells_of_an_axis);
    const double rows = std::clamp(wanted / columns, 1.0, most_cells_of_an_axis);
    across = make_axis(whole.left, whole.right, static_cast<std::size_t>(columns));
    down = make_axis(whole.top, whole.bottom, static_cast<std::size_t>(rows));
    cells.resize(std::size_t{across.count} * down.count);
    spans.reserve(owner.children.size());
    for (const auto& child : owner.children) append(*child);
}

hit_index* hit_index::for_test(node& owner, D2D_POINT_2F origin, const D2D_MATRIX_3X2_F& matrix) {
    if (owner.children.size() < fewest_children) return nullptr;
    const float x = std::fabs(origin.x);
    const float y = std::fabs(origin.y);
    const float greatest =
        std::max(x * std::fabs(matrix._11) + y * std::fabs(matrix._21) + std::fabs(matrix._31),
                 x * std::fabs(matrix._12) + y * std::fabs(matrix._22) + std::fabs(matrix._32));
    const D2D_POINT_2F point = map_point(origin, matrix);
    // What is hit far out has the more slack: rounding that comes of the distance alone may grow with it.
    const float distance = std::max(std::fabs(point.x), std::fabs(point.y));
    if (!(greatest <= greatest_sum * (1 + distance * slack_of_distance))) return nullptr;
    child_lookup& lookup = owner.child_lookup_of_many();
    if (!lookup.index) {
        // A tree that changes as a whole between any two tests is better asked than indexed.
        if (!std::exchange(lookup.tested_before, true)) return nullptr;
        lookup.index = std::make_unique<hit_index>(owner);
    }
    lookup.index->changes = 0;
    return lookup.index.get();
}

void hit_index::drop(node& owner) noexcept {
    if (!owner.lookup) return;
    owner.lookup->index.reset();
    owner.lookup->tested_before = false;
}

void hit_index::child_added(node& parent, node& child) {
    if (!parent.lookup || !parent.lookup->index) return;
    auto index = std::move(parent.lookup->index);
    index->append(child);
    parent.lookup->index = std::move(index);
}

void hit_index::child_removed(node& parent) noexcept {
    drop(parent);
}

void hit_index::child_changed(node& parent, node& child) {
    if (!parent.lookup || !parent.lookup->index) return;
    auto& kept = parent.lookup->index;
    if (++kept->changes > kept->spans.size() / 4) return drop(parent);
    // Out of its place meanwhile: an insertion that fails leaves the node without an index.
    auto index = std::move(kept);
    index->follow(child.number_in_parent, index->span_of(child));
    kept = std::move(index);
}

void hit_index::follow(std::uint32_t number, const span& now) {
    span& known = spans[number];
    if (now == known) return;
    erase(number, known);
    insert(number, now);
    known = now;
}

std::size_t hit_index::cell_at(D2D_POINT_2F point) const noexcept {
    return std::size_t{down.cell_of(point.y)} * across.count + across.cell_of(point.x);
}

hit_index::span hit_index::span_of(const node& child) const noexcept {
    const extent reach = child.subtree_hit_extent();
    if (!reach.valid && !child.clip_geometry && child.hit_mode != node::hit_solid) return {};
    if (child.hit_mode == node::hit_transparent) return {};
    const hit_area area = area_of(child, reach.rect);
    if (!area.bounded) return {span::kind::anywhere};
    const span block{span::kind::cells, across.cell_of(area.rect.left), down.cell_of(area.rect.top),
                     across.cell_of(area.rect.right), down.cell_of(area.rect.bottom)};
    const std::size_t width = std::size_t{block.right} - block.left + 1;
    const std::size_t height = std::size_t{block.bottom} - block.top + 1;
    return width * height > most_cells_of_a_child ? span{span::kind::anywhere} : block;
}

void hit_index::insert(std::uint32_t number, const span& where) {
    const auto into = [number](numbers& list) {
        list.insert(std::upper_bound(list.begin(), list.end(), number), number);
    };
    if (where.reach == span::kind::anywhere) return into(anywhere);
    if (where.reach == span::kind::nowhere) return;
    for (std::size_t y = where.top; y <= where.bottom; ++y) {
        for (std::size_t x = where.left; x <= where.right; ++x) into(cells[y * across.count + x]);
    }
}

void hit_index::erase(std::uint32_t number, const span& where) noexcept {
    const auto from = [number](numbers& list) {
        list.erase(std::lower_bound(list.begin(), list.end(), number));
    };
    if (where.reach == span::kind::anywhere) return from(anywhere);
    if (where.reach == span::kind::nowhere) return;
    for (std::size_t y = where.top; y <= where.bottom; ++y) {
        for (std::size_t x = where.left; x <= where.right; ++x) from(cells[y * across.count + x]);
    }
}

void hit_index::append(node& child) {
    child.number_in_parent = static_cast<std::uint32_t>(spans.size());
    spans.push_back(span_of(child));
    insert(child.number_in_parent, spans.back());
}

}  // namespace d2d::scene
