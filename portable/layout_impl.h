#pragma once

#include "com/base_object.h"
#include "com/ptr.h"
#include "portable/layout_arithmetic.h"
#include "ui/mossHarbour/IMaterializableElement.h"

#include <utility>
#include <vector>

namespace ui::mossHarbour {

/// An item of a layout as it stands on the screen. `Item` is what the layout's facade holds of it: `element`
/// and `details`, of which the latter go on to here.
template <class Item>
struct live_item {
    com::ptr<IMaterializedElement> element;
    both_axes<axis_metrics> wanted{};  // by the latest `measure`
    both_axes<axis_span> given{};      // by the latest `arrange`
    decltype(Item::details) details;

    void arrange() const {
        const auto& [x, y] = given;
        element->arrange(x.start, y.start, x.end, y.end);
    }
};

/// A layout as it stands on the screen. What `measure` finds holds until the next one.
template <class Derived, class Item>
class layout_impl : public com::base_object<com::object_base, IMaterializedElement> {
public:
    using item = live_item<Item>;

    // IMaterializedElement
    element_metrics measure(measure_context& context) override {
        for (auto& at : items) at.wanted = item_metrics(at.element->measure(context), at.details);
        return measure_items();
    }
    void arrange(int left, int top, int right, int bottom) override {
        arrange_items(left, top, right, bottom);
        for (const auto& at : items) at.arrange();
    }

    void add(const decltype(Item::details)& details, com::ptr<IMaterializedElement> element) {
        items.push_back({std::move(element), {}, {}, details});
    }
    void clear() noexcept { items.clear(); }

protected:
    ~layout_impl() = default;

    /// From what the items want.
    virtual element_metrics measure_items() = 0;
    /// Gives each item its place.
    virtual void arrange_items(int left, int top, int right, int bottom) = 0;

    std::vector<item> items;
};

}  // namespace ui::mossHarbour
