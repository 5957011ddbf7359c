#pragma once

#include "com/object.h"
#include "d2d/scene/layout/IElement.h"

#include <cstddef>
#include <vector>

namespace d2d::scene::layout {

/// Where a size of an item comes from. Every other value counts as `given`.
enum class size_source : int { element = 0, given = 1, element_preferred = 2 };

/// One of the six sizes of an item.
struct size_choice {
    size_source source = size_source::element;
    float value = 0;  // for `given`
};

/// How an item is placed. By default as its element says, from the start across the axis.
struct stack_item_details {
    size_choice min_width{};
    size_choice min_height{};
    size_choice max_width{};
    size_choice max_height{};
    size_choice preferred_width{};
    size_choice preferred_height{};
    int alignment =
        0;  // across the axis, when there is more room than the maximum: 0 start, 1 centre, else end
};

/// Places elements one after the other along an axis.
class stack : public com::base_object<com::object_base, IElement> {
public:
    explicit stack(int items_orientation) noexcept : orientation(items_orientation) {}

    /// Adds an element ahead of the item at `index`; behind all when there is none. With own margins the item
    /// keeps its margins apart: they collapse with those of its neighbours. Otherwise they count as part of
    /// its size, and the element is placed inside them.
    void insert_item(std::size_t index, com::ptr<IElement> element, bool use_own_margins,
                     const stack_item_details& details = {});
    /// The same at the end.
    void add_item(com::ptr<IElement> element, bool use_own_margins, const stack_item_details& details = {});

    // IElement
    /// Asks the elements for their metrics, which hold until the next call. All zero when there are no items.
    metrics measure() override;
    /// Places the elements by the metrics of the latest `measure`. Where there is too little room, the items
    /// without a limit shrink, and without any the others run out of `rect`.
    void arrange(D2D_RECT_F rect) override;

protected:
    ~stack() = default;

private:
    struct item {
        stack_item_details details;
        bool use_own_margins;
        com::ptr<IElement> element;
        metrics latest;  // with the details applied
    };

    [[nodiscard]] metrics outer_metrics(const item& from) const noexcept;

    int orientation;  // 0: the items run down; else across
    std::vector<item> items;
};

/// An empty stack: down with 0, else across.
[[nodiscard]] com::ptr<stack> create_stack(int orientation);

}  // namespace d2d::scene::layout
