#include "portable/hwnd_materialization_context_impl.h"

#include "portable/native_widget_factories.h"
#include "ui/mossHarbour/IMaterializableElement.h"

namespace ui::mossHarbour {

com::ptr<IMaterializedElement> hwnd_materialization_context_impl::materialize(
    const std::type_info& facade_type, IMaterializableElement* element) {
    const auto widget = native_widget_factories.make(facade_type);
    widget->materialize(*this, element);
    return com::ptr<IMaterializedElement>(widget.get());
}

void hwnd_materialization_context_impl::dematerialize(IMaterializableElement* element,
                                                      IMaterializedElement* live) {
    com::ptr<IHwndWidget>(live)->dematerialize(*this, element);
}

}  // namespace ui::mossHarbour
