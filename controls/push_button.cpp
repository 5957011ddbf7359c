#include "controls/push_button.h"

#include "com/object.h"

namespace d2d {

D2D_RECT_F push_button::content_rect() const noexcept {
    return {rect.left + margin.left, rect.top + margin.top, rect.right - margin.right,
            rect.bottom - margin.bottom};
}

scene::layout::metrics push_button::measure() {
    constexpr float outline = 1;
    const float extra_width = margin.left + margin.right + 2 * outline;
    const float extra_height = margin.top + margin.bottom + 2 * outline;
    auto result = label->measure();
    for (auto* const size : {&result.min_size, &result.preferred_size}) {
        size->width += extra_width;
        size->height += extra_height;
    }
    result.max_size = {scene::layout::unlimited, scene::layout::unlimited};
    return result;
}

com::ptr<ui::IPushButton> ui::create_push_button(ILabel* label, D2D_RECT_F rect, bool latching,
                                                 IUnknown* style) {
    return com::create_object<push_button>(label, rect, latching, style);
}

}  // namespace d2d
