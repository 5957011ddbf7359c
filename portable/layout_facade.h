#pragma once

#include "com/base_object.h"
#include "com/object.h"
#include "ui/mossHarbour/IElement.h"
#include "ui/mossHarbour/IMaterializableElement.h"

#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

namespace ui::mossHarbour {

/// Base of the layouts that a client holds: the items, and what stands on the screen for them while they are
/// materialized. `Item` is a record of `element` and `details`; `Derived` has `make_impl`.
template <class Derived, class Item, class Impl, class Interface>
class layout_facade : public com::base_object<com::object_base, Interface, IMaterializableElement> {
public:
    // IStackLayout, IGridLayout
    void add_item(const decltype(Item::details)& details, com::ptr<IElement> element) override {
        if (!element) throw std::logic_error("a layout can't have an item without an element");
        items.push_back({std::move(element), details});
    }

    // IMaterializableElement
    com::ptr<IMaterializedElement> materialize(materialization_context& context) override {
        const auto made = static_cast<Derived*>(this)->make_impl();
        impl = made;
        std::size_t done = 0;
        try {
            for (; done < items.size(); ++done) {
                auto live = materializable(items[done])->materialize(context);
                made->add(items[done].details, std::move(live));  // it may have added items to this
            }
        } catch (...) {
            take_away(context, done);
            throw;
        }
        return made;
    }
    void dematerialize(materialization_context& context) override {
        if (impl) take_away(context, items.size());
    }

protected:
    ~layout_facade() = default;

private:
    [[nodiscard]] static com::ptr<IMaterializableElement> materializable(const Item& of) {
        return com::ptr<IMaterializableElement>(of.element.get());
    }

    /// The first `count` items, and what stands for the layout.
    void take_away(materialization_context& context, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) materializable(items[i])->dematerialize(context);
        if (impl) impl->clear();
        impl.reset();
    }

    std::vector<Item> items;
    com::ptr<Impl> impl;
};

}  // namespace ui::mossHarbour
