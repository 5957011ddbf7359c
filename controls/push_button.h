#pragma once

#include "controls/button_impl.h"
#include "d2d/ui/IButtonStyle.h"
#include "d2d/ui/IPushButton.h"

namespace d2d {

class push_button : public button_impl<push_button, ui::IButtonStyle, ui::IPushButton> {
public:
    push_button(ui::ILabel* shown, D2D_RECT_F initial_rect, bool latches, IUnknown* style_source)
        : button_impl(shown, initial_rect, latches, style_source) {}

    // IElement
    scene::layout::metrics measure() override;
    // IPushButton
    void set_margin(D2D_RECT_F new_margin) override { margin = new_margin; }

    [[nodiscard]] D2D_RECT_F content_rect() const noexcept;

protected:
    ~push_button() = default;

private:
    D2D_RECT_F margin{2, 1, 2, 1};  // insets
};

}  // namespace d2d
