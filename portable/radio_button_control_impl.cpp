#include "portable/radio_button_control_impl.h"

#include "com/object.h"

namespace ui::mossHarbour {

com::ptr<IRadioButtonControl> create_radio_button_control(bool group_start) {
    return com::create_object<radio_button_control_impl::facade_impl>(group_start);
}

}  // namespace ui::mossHarbour
