#include "controls/check_box.h"

#include "com/object.h"

namespace d2d {

com::ptr<ui::ICheckBox> ui::create_check_box(ILabel* label, D2D_RECT_F rect, IUnknown* style) {
    return com::create_object<check_box>(label, rect, style);
}

}  // namespace d2d
