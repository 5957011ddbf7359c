#pragma once

#include "controls/button_impl.h"
#include "d2d/ui/ICheckBox.h"
#include "d2d/ui/ICheckBoxStyle.h"

namespace d2d {

class check_box : public button_impl<check_box, ui::ICheckBoxStyle, ui::ICheckBox> {
public:
    check_box(ui::ILabel* shown, D2D_RECT_F initial_rect, IUnknown* style_source)
        : button_impl(shown, initial_rect, true, style_source) {}

    // IElement
    scene::layout::metrics measure() override { return measure_with_mark(); }

protected:
    ~check_box() = default;
};

}  // namespace d2d
