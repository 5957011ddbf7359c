#pragma once

#include "com/object.h"
#include "d2d/scene/layout/IElement.h"
#include "scene/layout_distribution.h"

#include <cstddef>
#include <memory>
#include <optional>
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

/// How a stack learns that an element measures something else, or lies somewhere else, than it left it.
enum class element_changes { unknown, announced };

/// Places elements one after the other along an axis.
///
/// Measuring and arranging cost what has changed since the last time: elements whose changes are announced
/// are asked only then, and placed only then or when their rectangle has become another one; all others are
/// asked and placed each time. Sums and places behind a change are worked out anew as far as it is felt. What
/// comes out is what a pass over all elements gives. Such a pass takes place, without calls that change
/// nothing, when an item can grow or has no limit along the axis, and when the rectangle changes in a way
/// that many feel.
///
/// Elements may add and announce items while they are asked or placed, and may measure and arrange the stack:
/// then that inner pass is the one that counts.
class stack : public com::base_object<com::object_base, IElement> {
public:
    /// Names an item, for as long as the stack lives.
    struct item;

    explicit stack(int items_orientation) noexcept;

    /// Adds an element ahead of the item at `index`; behind all when there is none. With own margins the item
    /// keeps its margins apart: they collapse with those of its neighbours. Otherwise they count as part of
    /// its size, and the element is placed inside them.
    item* insert_item(std::size_t index, com::ptr<IElement> element, bool use_own_margins,
                      const stack_item_details& details = {},
                      element_changes changes = element_changes::unknown);
    /// The same at the end.
    item* add_item(com::ptr<IElement> element, bool use_own_margins, const stack_item_details& details = {},
                   element_changes changes = element_changes::unknown);
    /// Has an item asked and placed next time.
    void announce(item* changed);

    // IElement
    /// Asks the elements for their metrics, which hold until the next call. All zero when there are no items.
    metrics measure() override;
    /// Places the elements by the metrics of the latest `measure`. Where there is too little room, the items
    /// without a limit shrink, and without any the others run out of `rect`.
    void arrange(D2D_RECT_F rect) override;

protected:
    ~stack();

private:
    /// The items from the first to the last that have changed; those between them may have.
    struct changed_run {
        std::size_t first = none;
        std::size_t last = 0;

        void add(std::size_t index) noexcept;
        void add_inserted(std::size_t index) noexcept;
    };
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    template <class T>
    [[nodiscard]] T turned(T value) const noexcept;
    [[nodiscard]] metrics outer_metrics(const item& from) const noexcept;
    [[nodiscard]] std::size_t next_unsettled(std::size_t from);
    void forget_settled();
    void ask(item& asked);
    void store(item& of, const metrics& latest);
    void bring_sums_up_to_date() noexcept;
    [[nodiscard]] changed_run items_to_move(const D2D_RECT_F& area) const noexcept;
    [[nodiscard]] std::vector<length_share> shared_lengths(const D2D_RECT_F& area) const;
    [[nodiscard]] D2D_RECT_F next_place(item& of, const D2D_RECT_F& area, float length) noexcept;
    void put(item& placed, const D2D_RECT_F& rect);

    int orientation;  // 0: the items run down; else across
    std::vector<std::unique_ptr<item>> items;

    std::vector<item*> unsettled;  // those to ask or to place
    bool unsettled_in_order = true;
    std::size_t flexible = 0;  // items that are not rigid
    changed_run sums_to_do;
    changed_run places_to_do;
    // What the items were placed in, down: while all places follow from the rigid items alone.
    std::optional<D2D_RECT_F> placed_in;
    bool width_counts = false;  // for the place of an item
    unsigned changes = 0;       // a pass that sees another number was overtaken
};

/// An empty stack: down with 0, else across.
[[nodiscard]] com::ptr<stack> create_stack(int orientation);

}  // namespace d2d::scene::layout
