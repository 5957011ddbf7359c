#include "portable/push_button_control_impl.h"

#include "com/object.h"

namespace ui::mossHarbour {

com::ptr<IPushButtonControl> create_push_button_control() {
    return com::create_object<push_button_control_impl::facade_impl>();
}

}  // namespace ui::mossHarbour
