#include "portable/edit_control_impl.h"

#include "com/object.h"

namespace ui::mossHarbour {

com::ptr<IEditControl> create_edit_control() {
    return com::create_object<edit_control_impl::facade_impl>();
}

}  // namespace ui::mossHarbour
