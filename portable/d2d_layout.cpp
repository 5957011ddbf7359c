#include "ui/mossHarbour/d2d_layout.h"

#include "portable/d2d_materialization_context_impl.h"
#include "ui/mossHarbour/IMaterializableElement.h"

namespace ui::mossHarbour {

com::ptr<IMaterializedElement> materialize_d2d_layout(IPanel* panel, d2d::scene::INode* node,
                                                      com::ptr<ILayout> layout) {
    d2d_materialization_context_impl context(node, panel);
    return com::ptr<IMaterializableElement>(layout.get())->materialize(context);
}

void dematerialize_d2d_layout(IPanel* panel, d2d::scene::INode* node, com::ptr<ILayout> layout) {
    d2d_materialization_context_impl context(node, panel);
    com::ptr<IMaterializableElement>(layout.get())->dematerialize(context);
}

}  // namespace ui::mossHarbour
