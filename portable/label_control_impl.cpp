#include "portable/label_control_impl.h"

#include "com/object.h"

namespace ui::mossHarbour {

com::ptr<ILabelControl> create_label_control() {
    return com::create_object<label_control_impl::facade_impl>();
}

}  // namespace ui::mossHarbour
