#pragma once

#include "d2d/scene/INode.h"
#include "ui/mossHarbour/ILayout.h"
#include "ui/mossHarbour/IMaterializedElement.h"
#include "ui/mossHarbour/IPanel.h"

namespace ui::mossHarbour {

/// A layout that is shown below a node, for a panel.
class scene_content {
public:
    /// Shows `next`, null for nothing, and returns the former layout. `panel` is what handlers are called
    /// with.
    com::ptr<ILayout> replace(com::ptr<ILayout> next, IPanel* panel);

    [[nodiscard]] const com::ptr<d2d::scene::INode>& node() const noexcept { return root; }
    /// Null without content.
    [[nodiscard]] const com::ptr<IMaterializedElement>& live() const noexcept { return shown; }
    /// There has to be a content.
    [[nodiscard]] element_metrics measure() const;

private:
    const com::ptr<d2d::scene::INode> root = d2d::scene::create_node();
    com::ptr<ILayout> layout;
    com::ptr<IMaterializedElement> shown;
};

}  // namespace ui::mossHarbour
