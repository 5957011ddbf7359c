#pragma once

#include "ui/mossHarbour/item_sizes.h"

namespace ui::mossHarbour {

/// How an item of a stack is placed.
struct stack_item_details : item_sizes {
    stack_item_details() = default;
    /// As the element says.
    explicit constexpr stack_item_details(item_alignment across) noexcept : alignment(across) {}

    /// Across the stack, for an item whose maximum is less than the room.
    item_alignment alignment = item_alignment::near_side;
};

}  // namespace ui::mossHarbour
