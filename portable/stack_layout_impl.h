#pragma once

#include "portable/layout_impl.h"
#include "ui/mossHarbour/IElement.h"
#include "ui/mossHarbour/orientation.h"
#include "ui/mossHarbour/stack_item_details.h"

namespace ui::mossHarbour {

/// An item of a stack as the client gave it.
struct stack_layout_item {
    com::ptr<IElement> element;
    stack_item_details details;
};

/// A stack as it stands on the screen. The same in both directions: `along` is the axis that the items follow
/// each other on, `across` the other one.
class stack_layout_impl : public layout_impl<stack_layout_impl, stack_layout_item> {
public:
    explicit stack_layout_impl(orientation direction) noexcept
        : along(direction == orientation::vertical ? axis::vertical : axis::horizontal),
          across(direction == orientation::vertical ? axis::horizontal : axis::vertical) {}

protected:
    ~stack_layout_impl() = default;

    element_metrics measure_items() override;
    void arrange_items(int left, int top, int right, int bottom) override;

private:
    struct grown_item {
        int size;
        int max;
        float weight;  // its part of what there is beyond the minimums
    };

    [[nodiscard]] std::vector<grown_item> grow(int extent) const;

    const axis along;
    const axis across;
};

}  // namespace ui::mossHarbour
