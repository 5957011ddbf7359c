#pragma once

#include "d2d/scene/INode.h"
#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/materialization_context.h"

namespace ui::mossHarbour {

/// A place on the scene: below a node. Both are borrowed.
class d2d_materialization_context : public materialization_context {
public:
    [[nodiscard]] virtual IPanel* get_panel() = 0;
    [[nodiscard]] virtual d2d::scene::INode* get_scene_node() = 0;

protected:
    ~d2d_materialization_context() = default;
};

}  // namespace ui::mossHarbour
