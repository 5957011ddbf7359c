#include "portable/check_box_control_impl.h"

#include "com/object.h"

namespace ui::mossHarbour {

com::ptr<ICheckBoxControl> create_check_box_control() {
    return com::create_object<check_box_control_impl::facade_impl>();
}

}  // namespace ui::mossHarbour
