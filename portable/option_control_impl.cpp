#include "portable/option_control_impl.h"

#include "com/object.h"

namespace ui::mossHarbour {

com::ptr<IOptionControl> create_option_control() {
    return com::create_object<option_control_impl::facade_impl>();
}

}  // namespace ui::mossHarbour
