#include "portable/group_box_measure.h"

#include "portable/layout_arithmetic.h"

#include <algorithm>

namespace ui::mossHarbour {

element_metrics measure_group_box(const element_metrics& content, SIZE caption,
                                  const box_lengths& insets) noexcept {
    constexpr int frame = 2;  // beside the content on both sides, and beneath it
    const int extra_width = sum(sum(insets.left, insets.right), 2 * frame);
    const int extra_height = sum(sum(caption.cy, frame), sum(insets.top, insets.bottom));
    element_metrics result = content;
    result.margin_left = result.margin_top = result.margin_right = result.margin_bottom = 0;
    if (content.max_width < caption.cx) {
        result.min_width = caption.cx;
        result.preferred_width = std::max<int>(content.preferred_width, caption.cx);
        result.max_width = std::max(content.max_width, result.preferred_width);
    }
    result.min_width = sum(result.min_width, extra_width);
    result.preferred_width = sum(result.preferred_width, extra_width);
    result.max_width = enlarged(result.max_width, extra_width);
    result.min_height = sum(result.min_height, extra_height);
    result.preferred_height = sum(result.preferred_height, extra_height);
    result.max_height = enlarged(result.max_height, extra_height);
    return result;
}

}  // namespace ui::mossHarbour
