#include "scene/layout_stack.h"

#include "scene/layout_distribution.h"
#include "scene/rectangle.h"

#include <utility>

namespace d2d::scene::layout {
namespace {

// A stack across is a stack down with the axes exchanged: what comes in and what goes out is turned over.

metrics flipped(const metrics& m) noexcept {
    return {scene::flipped(m.margin), scene::flipped(m.min_size), scene::flipped(m.max_size),
            scene::flipped(m.preferred_size)};
}

float chosen(const size_choice& choice, float element_size, float element_preferred) noexcept {
    switch (choice.source) {
        case size_source::element:
            return element_size;
        case size_source::element_preferred:
            return element_preferred;
        default:
            return choice.value;
    }
}

metrics resolved(const stack_item_details& details, const metrics& element) noexcept {
    const D2D_SIZE_F smallest = element.min_size;
    const D2D_SIZE_F largest = element.max_size;
    const D2D_SIZE_F preferred = element.preferred_size;
    return {element.margin,
            {chosen(details.min_width, smallest.width, preferred.width),
             chosen(details.min_height, smallest.height, preferred.height)},
            {chosen(details.max_width, largest.width, preferred.width),
             chosen(details.max_height, largest.height, preferred.height)},
            {chosen(details.preferred_width, preferred.width, preferred.width),
             chosen(details.preferred_height, preferred.height, preferred.height)}};
}

D2D_SIZE_F sum(D2D_SIZE_F a, D2D_SIZE_F b) noexcept {
    return {saturating_sum(a.width, b.width), saturating_sum(a.height, b.height)};
}

/// The margins as a part of the sizes.
metrics with_margins_inside(const metrics& m) noexcept {
    const D2D_SIZE_F added{m.margin.left + m.margin.right, m.margin.top + m.margin.bottom};
    return {{}, sum(m.min_size, added), sum(m.max_size, added), sum(m.preferred_size, added)};
}

D2D_RECT_F without_margins(const D2D_RECT_F& rect, const D2D_RECT_F& margin) noexcept {
    return {rect.left + margin.left, rect.top + margin.top, rect.right - margin.right,
            rect.bottom - margin.bottom};
}

/// Margins of neighbours collapse.
float gap_between(const metrics& above, const metrics& below) noexcept {
    return std::max(above.margin.bottom, below.margin.top);
}

/// Takes the metrics of items that run down, one by one.
class stack_sum {
public:
    void add(const metrics& m) noexcept {
        if (is_first_) {
            total_ = m;
        } else {
            gaps_ += gap_between(last_, m);
            add_sizes(m);
            add_margin(m.margin);
        }
        is_first_ = false;
        last_ = m;
    }

    [[nodiscard]] metrics result() const noexcept {
        metrics all = total_;
        all.max_size.width = std::max(all.max_size.width, all.preferred_size.width);
        all.max_size.height = std::max(all.max_size.height, all.preferred_size.height);
        for (D2D_SIZE_F* const size : {&all.min_size, &all.max_size, &all.preferred_size}) {
            size->height = saturating_sum(size->height, gaps_);
        }
        return all;
    }

private:
    void add_sizes(const metrics& m) noexcept {
        const auto add_one = [](D2D_SIZE_F& all, D2D_SIZE_F one) {
            all = {std::max(all.width, one.width), saturating_sum(all.height, one.height)};
        };
        add_one(total_.min_size, m.min_size);
        add_one(total_.max_size, m.max_size);
        add_one(total_.preferred_size, m.preferred_size);
    }

    void add_margin(const D2D_RECT_F& margin) noexcept {
        total_.margin = {std::max(total_.margin.left, margin.left), total_.margin.top,
                         std::max(total_.margin.right, margin.right), margin.bottom};
    }

    metrics total_{};
    metrics last_{};
    float gaps_ = 0;
    bool is_first_ = true;
};

/// Across the axis an item takes what it can, and where that is less than there is, its alignment decides.
void place_across(D2D_RECT_F& placed, float max_width, int alignment) noexcept {
    const float width = placed.right - placed.left;
    if (!(max_width < width)) return;
    if (alignment == 0) {
        placed.right = placed.left + max_width;
    } else if (alignment == 1) {
        placed.left += (width - max_width) / 2;
        placed.right = placed.left + max_width;
    } else {
        placed.left = placed.right - max_width;
    }
}

}  // namespace

void stack::insert_item(std::size_t index, com::ptr<IElement> element, bool use_own_margins,
                        const stack_item_details& details) {
    const auto place = items.begin() + static_cast<std::ptrdiff_t>(std::min(index, items.size()));
    items.insert(place, item{details, use_own_margins, std::move(element), {}});
}

void stack::add_item(com::ptr<IElement> element, bool use_own_margins, const stack_item_details& details) {
    insert_item(items.size(), std::move(element), use_own_margins, details);
}

metrics stack::outer_metrics(const item& from) const noexcept {
    const metrics outer = from.use_own_margins ? from.latest : with_margins_inside(from.latest);
    return orientation == 0 ? outer : flipped(outer);
}

metrics stack::measure() {
    stack_sum all;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const metrics measured = items[i].element->measure();
        items[i].latest = resolved(items[i].details, measured);
        all.add(outer_metrics(items[i]));
    }
    return orientation == 0 ? all.result() : flipped(all.result());
}

void stack::arrange(D2D_RECT_F rect) {
    if (items.empty()) return;
    const D2D_RECT_F area = orientation == 0 ? rect : scene::flipped(rect);
    std::vector<metrics> outer;
    std::vector<length_share> shares;
    outer.reserve(items.size());
    shares.reserve(items.size());
    float free = area.bottom - area.top;
    for (const item& each : items) {
        const metrics m = outer_metrics(each);
        free -= m.min_size.height;
        if (!outer.empty()) free -= std::max(gap_between(outer.back(), m), 0.0f);
        shares.push_back({m.max_size.height, m.preferred_size.height, m.min_size.height});
        outer.push_back(m);
    }
    distribute(free, shares);
    float y = area.top;
    for (std::size_t i = 0; i < shares.size(); ++i) {
        if (i > 0) y += std::max(gap_between(outer[i - 1], outer[i]), 0.0f);
        D2D_RECT_F placed{area.left, y, area.right, y + shares[i].length};
        y = placed.bottom;
        place_across(placed, outer[i].max_size.width, items[i].details.alignment);
        if (orientation != 0) placed = scene::flipped(placed);
        if (!items[i].use_own_margins) placed = without_margins(placed, items[i].latest.margin);
        items[i].element->arrange(placed);
    }
}

com::ptr<stack> create_stack(int orientation) {
    return com::create_object<stack>(orientation);
}

}  // namespace d2d::scene::layout
