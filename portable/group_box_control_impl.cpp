#include "portable/group_box_control_impl.h"

#include "com/object.h"

namespace ui::mossHarbour {

com::ptr<IGroupBoxControl> create_group_box_control() {
    return com::create_object<group_box_control_impl::facade_impl>();
}

}  // namespace ui::mossHarbour
