#include "controls/radio_button.h"

#include "com/object.h"

namespace d2d {

com::ptr<ui::IButton> ui::create_radio_button(ILabel* label, D2D_RECT_F rect, IUnknown* style) {
    return com::create_object<radio_button>(label, rect, style);
}

}  // namespace d2d
