#include "portable/layout_arithmetic.h"

#include "portable/length.h"

namespace ui::mossHarbour {
namespace {

int limit_of(int choice, int own, int preferred) noexcept {
    if (choice == use_preferred) return preferred;
    return choice == use_control_value ? own : decode_length(choice);
}

/// `item` has the client's lengths.
axis_metrics resolved(const axis_metrics& element, const axis_metrics& item) noexcept {
    axis_metrics result{};
    result.min = limit_of(item.min, element.min, element.preferred);
    result.max = limit_of(item.max, element.max, element.preferred);
    result.preferred = limit_of(item.preferred, element.preferred, element.preferred);
    if (result.preferred < result.min) {
        result.preferred = result.min;
    } else if (result.preferred > result.max) {
        result.preferred = result.max;
    }
    result.leading = std::max(decode_length(item.leading), element.leading);
    result.trailing = std::max(decode_length(item.trailing), element.trailing);
    return result;
}

}  // namespace

both_axes<axis_metrics> item_metrics(const element_metrics& element, const item_sizes& item) noexcept {
    const auto axes = axes_of(element);
    return {resolved(axes.horizontal, {item.margin_left, item.min_width, item.preferred_width, item.max_width,
                                       item.margin_right}),
            resolved(axes.vertical, {item.margin_top, item.min_height, item.preferred_height, item.max_height,
                                     item.margin_bottom})};
}

}  // namespace ui::mossHarbour
