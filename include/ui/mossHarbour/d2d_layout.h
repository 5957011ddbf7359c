#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/scene/INode.h"
#include "ui/mossHarbour/ILayout.h"
#include "ui/mossHarbour/IMaterializedElement.h"
#include "ui/mossHarbour/IPanel.h"

namespace ui::mossHarbour {

/// Shows a layout below a node of a client's own scene. The client measures what it gets, with a
/// `d2d_measure_context`, and arranges it in the node's space. `panel` is borrowed, and what handlers are
/// called with; it may be null. Throws `std::runtime_error` "Unable to materialized the specified element!"
/// for a control that has no form on the scene, and leaves nothing behind.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IMaterializedElement> materialize_d2d_layout(IPanel* panel,
                                                                                    d2d::scene::INode* node,
                                                                                    com::ptr<ILayout> layout);

/// Takes it away again.
MOSSHARBOUR_API void dematerialize_d2d_layout(IPanel* panel, d2d::scene::INode* node,
                                              com::ptr<ILayout> layout);

}  // namespace ui::mossHarbour
