#include "portable/d2d_materialization_context_impl.h"

#include "portable/scene_widget_factories.h"
#include "ui/mossHarbour/IMaterializableElement.h"

namespace ui::mossHarbour {

com::ptr<IMaterializedElement> d2d_materialization_context_impl::materialize(
    const std::type_info& facade_type, IMaterializableElement* element) {
    const auto widget = scene_widget_factories.make(facade_type);
    widget->materialize(*this, element);
    return com::ptr<IMaterializedElement>(widget.get());
}

void d2d_materialization_context_impl::dematerialize(IMaterializableElement* element,
                                                     IMaterializedElement* live) {
    com::ptr<ID2dWidget>(live)->dematerialize(*this, element);
}

}  // namespace ui::mossHarbour
