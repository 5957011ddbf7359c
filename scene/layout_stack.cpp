#include "scene/layout_stack.h"

#include "scene/layout_stack_metrics.h"

#include <algorithm>
#include <utility>

namespace d2d::scene::layout {
namespace {

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

float width_of(const D2D_RECT_F& rect) noexcept {
    return rect.right - rect.left;
}

/// Across the axis an item takes what it can, and where that is less than there is, its alignment decides.
void place_across(D2D_RECT_F& placed, float max_width, int alignment) noexcept {
    const float width = width_of(placed);
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

// A stack across is a stack down with the axes exchanged: what comes in and what goes out is turned over.

struct stack::item {
    stack_item_details details;
    bool use_own_margins;
    bool announces;  // its changes
    bool to_ask = true;
    bool to_place = true;
    bool is_listed = false;  // as unsettled
    com::ptr<IElement> element;
    std::size_t index;
    metrics latest{};     // with the details applied
    stack_sum sum{};      // of the items up to this one, down
    float end = 0;        // where it was placed, down
    D2D_RECT_F placed{};  // what the element was given

    [[nodiscard]] bool is_settled() const noexcept { return announces && !to_ask && !to_place; }
};

stack::stack(int items_orientation) noexcept : orientation(items_orientation) {}

stack::~stack() = default;

void stack::changed_run::add(std::size_t index) noexcept {
    if (first == none) {
        first = last = index;
    } else {
        first = std::min(first, index);
        last = std::max(last, index);
    }
}

void stack::changed_run::add_inserted(std::size_t index) noexcept {
    if (first != none && last >= index) ++last;
    add(index);
}

template <class T>
T stack::turned(T value) const noexcept {
    return orientation == 0 ? value : flipped(value);
}

stack::item* stack::insert_item(std::size_t index, com::ptr<IElement> element, bool use_own_margins,
                                const stack_item_details& details, element_changes element_changes) {
    index = std::min(index, items.size());
    auto added = std::make_unique<item>(item{.details = details,
                                             .use_own_margins = use_own_margins,
                                             .announces = element_changes == element_changes::announced,
                                             .element = std::move(element),
                                             .index = index});
    item* const token = added.get();
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(index), std::move(added));
    for (std::size_t i = index + 1; i < items.size(); ++i) items[i]->index = i;
    ++changes;
    sums_to_do.add_inserted(index);
    places_to_do.add_inserted(index);
    if (!is_rigid(outer_metrics(*token))) ++flexible;
    announce(token);
    return token;
}

stack::item* stack::add_item(com::ptr<IElement> element, bool use_own_margins,
                             const stack_item_details& details, element_changes element_changes) {
    return insert_item(items.size(), std::move(element), use_own_margins, details, element_changes);
}

void stack::announce(item* changed) {
    changed->to_ask = changed->to_place = true;
    if (changed->is_listed) return;
    unsettled_in_order =
        unsettled_in_order && (unsettled.empty() || unsettled.back()->index < changed->index);
    unsettled.push_back(changed);
    changed->is_listed = true;
}

/// The index of the first unsettled item from an index on, or `none`.
std::size_t stack::next_unsettled(std::size_t from) {
    if (!std::exchange(unsettled_in_order, true)) {
        std::sort(unsettled.begin(), unsettled.end(),
                  [](const item* a, const item* b) { return a->index < b->index; });
    }
    const auto next =
        std::lower_bound(unsettled.begin(), unsettled.end(), from,
                         [](const item* each, std::size_t index) { return each->index < index; });
    return next == unsettled.end() ? none : (*next)->index;
}

void stack::forget_settled() {
    std::erase_if(unsettled, [](item* each) {
        each->is_listed = !each->is_settled();
        return !each->is_listed;
    });
}

metrics stack::outer_metrics(const item& from) const noexcept {
    return turned(from.use_own_margins ? from.latest : with_margins_inside(from.latest));
}

metrics stack::measure() {
    ++changes;
    for (std::size_t at = next_unsettled(0); at != none;) {
        item& asked = *items[at];
        ask(asked);
        at = next_unsettled(asked.index + 1);  // more may have come meanwhile
    }
    bring_sums_up_to_date();
    return items.empty() ? metrics{} : turned(items.back()->sum.result());
}

void stack::ask(item& asked) {
    asked.to_ask = false;  // here: what the element announces meanwhile is a change
    try {
        store(asked, resolved(asked.details, asked.element->measure()));
    } catch (...) {
        asked.to_ask = true;
        throw;
    }
}

void stack::store(item& of, const metrics& latest) {
    if (same_metrics(of.latest, latest)) return;
    if (!is_rigid(outer_metrics(of))) --flexible;
    of.latest = latest;
    if (!is_rigid(outer_metrics(of))) ++flexible;
    sums_to_do.add(of.index);
    places_to_do.add(of.index);
}

void stack::bring_sums_up_to_date() noexcept {
    for (std::size_t i = sums_to_do.first; i < items.size(); ++i) {
        stack_sum sum;
        if (i == 0) {
            sum.add(nullptr, outer_metrics(*items[0]));
        } else {
            const metrics above = outer_metrics(*items[i - 1]);
            sum = items[i - 1]->sum;
            sum.add(&above, outer_metrics(*items[i]));
        }
        if (i > sums_to_do.last && sum == items[i]->sum) break;
        items[i]->sum = sum;
    }
    sums_to_do = {};
}

/// The items that may have to move. All, unless lengths and places follow from the rigid items alone and the
/// rectangle is the same to them.
stack::changed_run stack::items_to_move(const D2D_RECT_F& area) const noexcept {
    const changed_run all{0, items.size() - 1};
    if (flexible > 0 || !placed_in || area.left != placed_in->left || area.top != placed_in->top) return all;
    const float before = width_of(*placed_in);
    const float now = width_of(area);
    return now == before || (now > before && !width_counts) ? places_to_do : all;
}

/// What the items take along the axis.
std::vector<length_share> stack::shared_lengths(const D2D_RECT_F& area) const {
    std::vector<length_share> shares;
    shares.reserve(items.size());
    float free = area.bottom - area.top;
    metrics above{};
    for (const auto& each : items) {
        const metrics m = outer_metrics(*each);
        free -= m.min_size.height;
        if (!shares.empty()) free -= placed_gap_between(above, m);
        shares.push_back({m.max_size.height, m.preferred_size.height, m.min_size.height});
        above = m;
    }
    distribute(free, shares);
    return shares;
}

/// Where an item comes to lie behind the one above it.
D2D_RECT_F stack::next_place(item& of, const D2D_RECT_F& area, float length) noexcept {
    const metrics m = outer_metrics(of);
    float start = area.top;
    if (of.index > 0) {
        const item& above = *items[of.index - 1];
        start = above.end + placed_gap_between(outer_metrics(above), m);
    }
    D2D_RECT_F placed{area.left, start, area.right, start + length};
    of.end = placed.bottom;
    if (of.details.alignment != 0 || !(m.max_size.width < width_of(area))) width_counts = true;
    place_across(placed, m.max_size.width, of.details.alignment);
    placed = turned(placed);
    return of.use_own_margins ? placed : without_margins(placed, of.latest.margin);
}

void stack::put(item& placed, const D2D_RECT_F& rect) {
    const bool is_there = placed.announces && !placed.to_place && same_edges(rect, placed.placed);
    placed.placed = rect;
    if (is_there) return;
    placed.to_place = false;  // here: what the element announces meanwhile is a change
    try {
        placed.element->arrange(rect);
    } catch (...) {
        placed.to_place = true;
        throw;
    }
}

void stack::arrange(D2D_RECT_F rect) {
    if (items.empty()) return;
    const D2D_RECT_F area = turned(rect);
    const changed_run to_move = items_to_move(area);
    const auto shares = flexible > 0 ? shared_lengths(area) : std::vector<length_share>();
    const unsigned pass = ++changes;
    placed_in.reset();
    if (to_move.first == 0 && to_move.last + 1 == items.size()) width_counts = false;
    std::size_t moving = to_move.first;  // the next one to move
    const auto next_to_place = [&](std::size_t from) { return std::min(moving, next_unsettled(from)); };
    for (std::size_t at = next_to_place(0); at < items.size(); at = next_to_place(at + 1)) {
        item& each = *items[at];
        D2D_RECT_F place = each.placed;
        if (at == moving) {
            const float end_before = each.end;
            place = next_place(each, area,
                               shares.empty() ? outer_metrics(each).min_size.height : shares[at].length);
            const bool is_felt =
                at <= to_move.last || each.end != end_before || !same_edges(place, each.placed);
            moving = is_felt ? at + 1 : none;
        }
        put(each, place);
        if (changes != pass) return;
    }
    forget_settled();
    places_to_do = {};
    if (flexible == 0) placed_in = area;
}

com::ptr<stack> create_stack(int orientation) {
    return com::create_object<stack>(orientation);
}

}  // namespace d2d::scene::layout
