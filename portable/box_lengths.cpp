#include "portable/box_lengths.h"

#include "portable/length.h"

#include <algorithm>

namespace ui::mossHarbour {

box_lengths distances_around(const element_metrics& content, const box_lengths& padding) noexcept {
    return {std::max(decode_length(padding.left), content.margin_left),
            std::max(decode_length(padding.top), content.margin_top),
            std::max(decode_length(padding.right), content.margin_right),
            std::max(decode_length(padding.bottom), content.margin_bottom)};
}

}  // namespace ui::mossHarbour
