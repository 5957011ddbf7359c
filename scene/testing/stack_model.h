#pragma once

#include "d2d/scene/layout/metrics.h"

#include <vector>

namespace d2d::scene::fakes {

/// An item of a stack, as the model sees it: its element's metrics with the details applied.
struct stack_model_item {
    layout::metrics measured;
    bool own_margins;
    int alignment;
};

/// What a stack says and does, worked out in double precision, with infinity for what has no limit.
struct stack_model {
    bool across;
    std::vector<stack_model_item> items;

    [[nodiscard]] layout::metrics measure() const;
    [[nodiscard]] std::vector<D2D_RECT_F> arrange(const D2D_RECT_F& rect) const;
};

}  // namespace d2d::scene::fakes
