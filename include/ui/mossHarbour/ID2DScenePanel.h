#pragma once

#include "com/api.h"
#include "d2d/scene/INode.h"
#include "ui/mossHarbour/IPanel.h"
#include "ui/mossHarbour/element_metrics.h"

namespace ui::mossHarbour {

/// A panel without a window: a node for a client's own scene. `measure` and `arrange` need a content.
struct ID2DScenePanel : IPanel {
    /// What the content is shown below, the same for as long as the panel lives. The client puts it into its
    /// scene. When a content goes, all children of the node go, also those that the client has added.
    virtual com::ptr<d2d::scene::INode> get_node() = 0;
    /// Measures the content, and remembers what comes out.
    virtual element_metrics measure() = 0;
    /// What came out the last time.
    virtual element_metrics get_measured() = 0;
    /// Places the content, in pixels of the node's space. Needs a `measure` ahead.
    virtual void arrange(int left, int top, int right, int bottom) = 0;
};

/// A panel whose node is in no scene yet. `upstream` is kept, and answers for services; may be null. Take the
/// content out, with `set_content(nullptr)`, ahead of letting go of the panel: else the controls stay alive,
/// and call their handlers with a panel that is gone.
[[nodiscard]] MOSSHARBOUR_API com::ptr<ID2DScenePanel> create_d2d_scene_node_panel(
    IServiceProvider* upstream);

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::ID2DScenePanel> : com::extends<ui::mossHarbour::IPanel> {
    static constexpr GUID id = com::guid("47A416D7-38ED-4CFE-A3D6-F59DFCED646B");
};
