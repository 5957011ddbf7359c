#pragma once

#include "controls/button_impl.h"
#include "d2d/ui/IButton.h"
#include "d2d/ui/IRadioButtonStyle.h"

namespace d2d {

class radio_button : public button_impl<radio_button, ui::IRadioButtonStyle, ui::IButton> {
public:
    radio_button(ui::ILabel* shown, D2D_RECT_F initial_rect, IUnknown* style_source)
        : button_impl(shown, initial_rect, true, style_source) {}

    // IElement
    scene::layout::metrics measure() override { return measure_with_mark(); }

protected:
    ~radio_button() = default;
};

}  // namespace d2d
