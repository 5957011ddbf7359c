#include "planar_overlay.h"

#include <cstdlib>
#include <tuple>

namespace completion {

namespace {

/// No coordinate on the grid is larger: products of two differences of doubled coordinates fit 64 bits.
constexpr double largest_coordinate = 1 << 27;
constexpr double finest_scale = 1 << 20;
constexpr int most_rounds = 16;

double scale_for(std::initializer_list<const outline*> shapes) noexcept {
    double largest = 1;
    for (const outline* shape : shapes) {
        for (const figure& each : shape->figures) {
            for (const point p : each.points) {
                largest = std::max({largest, std::abs(p.x), std::abs(p.y)});
            }
        }
    }
    const double fitting = std::exp2(std::floor(std::log2(largest_coordinate / largest)));
    return std::min(fitting, finest_scale);
}

template <typename Vertex>
std::int64_t cross(const Vertex& origin, const Vertex& a, const Vertex& b) noexcept {
    return (a.x - origin.x) * (b.y - origin.y) - (a.y - origin.y) * (b.x - origin.x);
}

}  // namespace

planar_overlay::planar_overlay(const outline& first, const outline& second)
    : fill_modes_{first.fill_mode, second.fill_mode}, scale_(scale_for({&first, &second})) {
    add(first, 0);
    add(second, 1);
    cut_where_edges_meet();
}

outline planar_overlay::combined(const selection& selected) const {
    return traced(boundary(selected));
}

planar_overlay::vertex planar_overlay::on_grid(point p) const noexcept {
    return {std::llround(p.x * scale_), std::llround(p.y * scale_)};
}

point planar_overlay::off_grid(vertex v) const noexcept {
    return {static_cast<double>(v.x) / scale_, static_cast<double>(v.y) / scale_};
}

planar_overlay::edge planar_overlay::flipped(const edge& given) noexcept {
    return {given.to, given.from, {-given.passes[0], -given.passes[1]}};
}

void planar_overlay::append(const edge& directed, std::vector<edge>& edges) {
    const auto& [from, to, passes] = directed;
    if (from != to) {
        const bool upward = from.y < to.y || (from.y == to.y && from.x < to.x);
        edges.push_back(upward ? directed : flipped(directed));
    }
}

void planar_overlay::add(const outline& shape, std::size_t operand) {
    for (const figure& each : shape.figures) {
        if (!each.filled) {
            continue;
        }
        vertex from = on_grid(each.points.back());
        for (const point p : each.points) {
            const vertex to = on_grid(p);
            edge added{from, to, {0, 0}};
            added.passes[operand] = 1;
            append(added, edges_);
            from = to;
        }
    }
    merge_equal_edges();
}

void planar_overlay::merge_equal_edges() {
    std::sort(edges_.begin(), edges_.end(),
              [](const edge& a, const edge& b) { return std::tie(a.from, a.to) < std::tie(b.from, b.to); });
    std::vector<edge> merged;
    for (const edge& each : edges_) {
        if (!merged.empty() && merged.back().from == each.from && merged.back().to == each.to) {
            merged.back().passes[0] += each.passes[0];
            merged.back().passes[1] += each.passes[1];
        } else {
            merged.push_back(each);
        }
    }
    std::erase_if(merged, [](const edge& each) { return each.passes[0] == 0 && each.passes[1] == 0; });
    edges_ = std::move(merged);
}

void planar_overlay::cut_where_edges_meet() {
    for (int round = 0; round < most_rounds && cut_once(); ++round) {
        merge_equal_edges();
    }
}

bool planar_overlay::touches(vertex p, const edge& given) noexcept {
    if (p == given.from || p == given.to) {
        return false;
    }
    const std::int64_t dx = given.to.x - given.from.x;
    const std::int64_t dy = given.to.y - given.from.y;
    const std::int64_t along = (p.x - given.from.x) * dx + (p.y - given.from.y) * dy;
    if (along <= 0 || along >= dx * dx + dy * dy) {
        return false;
    }
    const auto off = static_cast<double>(std::abs(cross(given.from, given.to, p)));
    return off <= 0.75 * std::hypot(static_cast<double>(dx), static_cast<double>(dy));
}

bool planar_overlay::crossing(const edge& a, const edge& b, vertex& where) noexcept {
    const std::int64_t from = cross(a.from, a.to, b.from);
    const std::int64_t to = cross(a.from, a.to, b.to);
    if ((from > 0) == (to > 0) || from == 0 || to == 0) {
        return false;
    }
    const std::int64_t other_from = cross(b.from, b.to, a.from);
    const std::int64_t other_to = cross(b.from, b.to, a.to);
    if ((other_from > 0) == (other_to > 0) || other_from == 0 || other_to == 0) {
        return false;
    }
    const double t = static_cast<double>(from) / (static_cast<double>(from) - static_cast<double>(to));
    where.x = b.from.x + std::llround(t * static_cast<double>(b.to.x - b.from.x));
    where.y = b.from.y + std::llround(t * static_cast<double>(b.to.y - b.from.y));
    return true;
}

void planar_overlay::meet(const edge& a, const edge& b, std::vector<vertex>& cuts_of_a,
                          std::vector<vertex>& cuts_of_b) {
    bool touched = false;
    for (const vertex end : {b.from, b.to}) {
        if (touches(end, a)) {
            cuts_of_a.push_back(end);
            touched = true;
        }
    }
    for (const vertex end : {a.from, a.to}) {
        if (touches(end, b)) {
            cuts_of_b.push_back(end);
            touched = true;
        }
    }
    vertex where{};
    if (!touched && crossing(a, b, where)) {
        if (where != a.from && where != a.to) {
            cuts_of_a.push_back(where);
        }
        if (where != b.from && where != b.to) {
            cuts_of_b.push_back(where);
        }
    }
}

std::vector<std::vector<planar_overlay::vertex>> planar_overlay::meetings() const {
    // The edges are sorted by their left ends, so that each meets only those that begin before it ends.
    std::vector<std::vector<vertex>> cuts(edges_.size());
    for (std::size_t i = 0; i < edges_.size(); ++i) {
        const edge& a = edges_[i];
        const std::int64_t right = std::max(a.from.x, a.to.x) + 1;
        for (std::size_t j = i + 1; j < edges_.size(); ++j) {
            const edge& b = edges_[j];
            if (std::min(b.from.x, b.to.x) > right) {
                break;
            }
            if (b.from.y <= a.to.y + 1 && a.from.y <= b.to.y + 1) {
                meet(a, b, cuts[i], cuts[j]);
            }
        }
    }
    return cuts;
}

void planar_overlay::append_pieces(const edge& whole, std::vector<vertex> cuts, std::vector<edge>& pieces) {
    const auto along = [&whole](vertex v) {
        return (v.x - whole.from.x) * (whole.to.x - whole.from.x) +
               (v.y - whole.from.y) * (whole.to.y - whole.from.y);
    };
    std::sort(cuts.begin(), cuts.end(), [&](vertex a, vertex b) { return along(a) < along(b); });
    cuts.push_back(whole.to);
    vertex from = whole.from;
    for (const vertex to : cuts) {
        append({from, to, whole.passes}, pieces);
        from = to;
    }
}

bool planar_overlay::cut_once() {
    std::sort(edges_.begin(), edges_.end(), [](const edge& a, const edge& b) {
        return std::min(a.from.x, a.to.x) < std::min(b.from.x, b.to.x);
    });
    std::vector<std::vector<vertex>> cuts = meetings();
    std::vector<edge> pieces;
    bool any = false;
    for (std::size_t i = 0; i < edges_.size(); ++i) {
        any = any || !cuts[i].empty();
        append_pieces(edges_[i], std::move(cuts[i]), pieces);
    }
    edges_ = std::move(pieces);
    return any;
}

planar_overlay::side planar_overlay::lower_side(const edge& given) const noexcept {
    const bool level = given.from.y == given.to.y;
    // A ray from the edge's middle toward lower x (lower y when level), in doubled coordinates.
    const vertex middle{given.from.x + given.to.x, given.from.y + given.to.y};
    side result{};
    for (const edge& other : edges_) {
        const std::int64_t at = level ? middle.x : middle.y;
        const std::int64_t begin = 2 * (level ? other.from.x : other.from.y);
        const std::int64_t end = 2 * (level ? other.to.x : other.to.y);
        if ((begin <= at) == (end <= at) || &other == &given) {
            continue;
        }
        const vertex from{2 * other.from.x, 2 * other.from.y};
        const vertex to{2 * other.to.x, 2 * other.to.y};
        const std::int64_t turn = cross(from, to, middle);
        const bool lower = level ? (turn > 0) == (end > begin) : turn < 0;
        if (turn != 0 && lower) {
            const int direction = end > begin ? 1 : -1;
            result.winding[0] += direction * other.passes[0];
            result.winding[1] += direction * other.passes[1];
        }
    }
    return result;
}

bool planar_overlay::inside(int winding, std::size_t operand) const noexcept {
    return fill_modes_[operand] == D2D1_FILL_MODE_WINDING ? winding != 0 : winding % 2 != 0;
}

std::vector<planar_overlay::edge> planar_overlay::boundary(const selection& selected) const {
    std::vector<edge> kept;
    for (const edge& each : edges_) {
        const side low = lower_side(each);
        const bool on_low = selected(inside(low.winding[0], 0), inside(low.winding[1], 1));
        const bool on_high =
            selected(inside(low.winding[0] + each.passes[0], 0), inside(low.winding[1] + each.passes[1], 1));
        if (on_low == on_high) {
            continue;
        }
        const bool level = each.from.y == each.to.y;
        kept.push_back(on_low == level ? flipped(each) : each);
    }
    return kept;
}

planar_overlay::ways::iterator planar_overlay::sharpest_turn(ways& leaving, vertex previous, vertex current) {
    const auto turn = [&](const ways::value_type& way) {
        const point in{static_cast<double>(current.x - previous.x),
                       static_cast<double>(current.y - previous.y)};
        const point out{static_cast<double>(way.second.x - current.x),
                        static_cast<double>(way.second.y - current.y)};
        return std::atan2(completion::cross(in, out), dot(in, out));
    };
    const auto [first, last] = leaving.equal_range(current);
    return first == last ? leaving.end() : std::max_element(first, last, [&](const auto& a, const auto& b) {
        return turn(a) < turn(b);
    });
}

std::vector<planar_overlay::vertex> planar_overlay::take_loop(ways& leaving) {
    const vertex start = leaving.begin()->first;
    vertex previous = start;
    vertex current = leaving.begin()->second;
    leaving.erase(leaving.begin());
    std::vector<vertex> loop{start};
    while (current != start) {
        // Where several figures touch, the sharpest turn into the filled side keeps them apart.
        const auto way = sharpest_turn(leaving, previous, current);
        if (way == leaving.end()) {
            break;
        }
        loop.push_back(current);
        previous = current;
        current = way->second;
        leaving.erase(way);
    }
    return loop;
}

figure planar_overlay::without_straight_vertices(const std::vector<vertex>& loop) const {
    figure result;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const vertex before = loop[(i + loop.size() - 1) % loop.size()];
        const vertex after = loop[(i + 1) % loop.size()];
        if (cross(before, loop[i], after) != 0) {
            result.points.push_back(off_grid(loop[i]));
        }
    }
    result.smooth.resize(result.points.size(), false);
    return result;
}

outline planar_overlay::traced(const std::vector<edge>& directed) const {
    ways leaving;
    for (const edge& each : directed) {
        leaving.emplace(each.from, each.to);
    }
    outline result;
    while (!leaving.empty()) {
        figure loop = without_straight_vertices(take_loop(leaving));
        if (loop.points.size() > 2) {
            result.figures.push_back(std::move(loop));
        }
    }
    return result;
}

}  // namespace completion
