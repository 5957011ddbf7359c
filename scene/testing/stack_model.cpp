#include "scene/testing/stack_model.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace d2d::scene::fakes {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

double limit(float size) {
    return size >= layout::unlimited ? infinity : static_cast<double>(size);
}

float size_of(double limit) {
    return limit == infinity ? layout::unlimited : static_cast<float>(limit);
}

/// The sizes of an item along an axis.
struct line {
    double min, max, preferred, margin_before, margin_after;
};

line with_margins(line l, bool own) {
    if (own) return l;
    const double added = l.margin_before + l.margin_after;
    return {l.min + added, l.max + added, l.preferred + added, 0, 0};
}

line horizontal(const stack_model_item& item) {
    const auto& m = item.measured;
    return with_margins({limit(m.min_size.width), limit(m.max_size.width), limit(m.preferred_size.width),
                         limit(m.margin.left), limit(m.margin.right)},
                        item.own_margins);
}

line vertical(const stack_model_item& item) {
    const auto& m = item.measured;
    return with_margins({limit(m.min_size.height), limit(m.max_size.height), limit(m.preferred_size.height),
                         limit(m.margin.top), limit(m.margin.bottom)},
                        item.own_margins);
}

/// The stack's sizes on the axis along which items follow each other.
line measured_along(const std::vector<line>& lines) {
    line all{0, 0, 0, lines.front().margin_before, lines.back().margin_after};
    double gaps = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        all.min += lines[i].min;
        all.max += lines[i].max;
        all.preferred += lines[i].preferred;
        if (i > 0) gaps += std::max(lines[i - 1].margin_after, lines[i].margin_before);
    }
    return {all.min + gaps, std::max(all.max, all.preferred) + gaps, all.preferred + gaps, all.margin_before,
            all.margin_after};
}

line measured_across(const std::vector<line>& lines) {
    line all = lines.front();
    for (const line& each : lines) {
        all.min = std::max(all.min, each.min);
        all.max = std::max({all.max, each.max, each.preferred});
        all.preferred = std::max(all.preferred, each.preferred);
        all.margin_before = std::max(all.margin_before, each.margin_before);
        all.margin_after = std::max(all.margin_after, each.margin_after);
    }
    return all;
}

double grow(double& length, const line& l, double share) {
    const double growth = std::min(l.max - length, share);
    length += growth;
    return growth;
}

std::vector<double> lengths_of(const std::vector<line>& lines, double free) {
    std::vector<double> lengths;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lengths.push_back(lines[i].min);
        free -= lines[i].min;
        if (i > 0) free -= std::max({lines[i - 1].margin_after, lines[i].margin_before, 0.0});
    }
    for (const bool by_preference : {true, false}) {
        while (free > 0) {
            double total = 0;
            for (std::size_t i = 0; i < lines.size(); ++i) {
                if (lengths[i] >= lines[i].max) continue;
                if (by_preference) total += lines[i].preferred;
                if (!by_preference && lines[i].max < infinity) total += lines[i].max;
            }
            if (total == 0) break;
            double given = 0;
            for (std::size_t i = 0; i < lines.size(); ++i) {
                if (lengths[i] >= lines[i].max) continue;
                const double weight = by_preference ? lines[i].preferred : lines[i].max;
                given +=
                    grow(lengths[i], lines[i], weight == infinity ? free : std::floor(weight * free / total));
            }
            free -= given;
            if (given <= 0) break;
        }
    }
    const auto takers =
        std::count_if(lines.begin(), lines.end(), [](const line& l) { return l.max == infinity; });
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].max == infinity) lengths[i] += free / static_cast<double>(takers);
    }
    return lengths;
}

/// From where to where an item reaches across the axis.
std::pair<double, double> reach_across(const line& l, int alignment, double start, double end) {
    if (l.max >= end - start) return {start, end};
    if (alignment == 0) return {start, start + l.max};
    if (alignment == 1) return {start + (end - start - l.max) / 2, start + (end - start + l.max) / 2};
    return {end - l.max, end};
}

}  // namespace

layout::metrics stack_model::measure() const {
    if (items.empty()) return {};
    std::vector<line> widths;
    std::vector<line> heights;
    for (const auto& item : items) {
        widths.push_back(horizontal(item));
        heights.push_back(vertical(item));
    }
    const line width = across ? measured_along(widths) : measured_across(widths);
    const line height = across ? measured_across(heights) : measured_along(heights);
    return {{size_of(width.margin_before), size_of(height.margin_before), size_of(width.margin_after),
             size_of(height.margin_after)},
            {size_of(width.min), size_of(height.min)},
            {size_of(width.max), size_of(height.max)},
            {size_of(width.preferred), size_of(height.preferred)}};
}

std::vector<D2D_RECT_F> stack_model::arrange(const D2D_RECT_F& rect) const {
    std::vector<line> lines;
    for (const auto& item : items) lines.push_back(across ? horizontal(item) : vertical(item));
    const double room = across ? static_cast<double>(rect.right) - static_cast<double>(rect.left)
                               : static_cast<double>(rect.bottom) - static_cast<double>(rect.top);
    const std::vector<double> lengths = lengths_of(lines, room);
    std::vector<D2D_RECT_F> placed;
    double at = static_cast<double>(across ? rect.left : rect.top);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto& item = items[i];
        if (i > 0) at += std::max({lines[i - 1].margin_after, lines[i].margin_before, 0.0});
        const auto [from, to] =
            across ? reach_across(vertical(item), item.alignment, static_cast<double>(rect.top),
                                  static_cast<double>(rect.bottom))
                   : reach_across(horizontal(item), item.alignment, static_cast<double>(rect.left),
                                  static_cast<double>(rect.right));
        const double end = at + lengths[i];
        const D2D_RECT_F margin = item.own_margins ? D2D_RECT_F{} : item.measured.margin;
        placed.push_back({static_cast<float>(across ? at : from) + margin.left,
                          static_cast<float>(across ? from : at) + margin.top,
                          static_cast<float>(across ? end : to) - margin.right,
                          static_cast<float>(across ? to : end) - margin.bottom});
        at = end;
    }
    return placed;
}

}  // namespace d2d::scene::fakes
