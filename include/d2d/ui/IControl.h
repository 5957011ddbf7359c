#pragma once

#include "com/ptr.h"
#include "d2d/scene/INode.h"
#include "d2d/scene/layout/IElement.h"

namespace d2d::ui {

/// A control of the scene: a node, drawn by a style. Whoever makes a control adds its node to a scene and
/// keeps the control; a node whose control is gone reacts to nothing any more. A control's coordinates are
/// those of its node's parent: the node's own transform stays the identity, except that labels are placed by
/// it (see `ILabel`).
///
/// The functions that make controls take as `style` the object to ask for the control's style interface, and
/// throw `com::error` when it has none; null stands for the default style.
struct IControl : scene::layout::IElement {
    /// The control's node, for the scene that it is shown in.
    virtual com::ptr<scene::INode> get_node() = 0;
    /// The rectangle that the control takes up, in its node's space, in pixels.
    virtual D2D_RECT_F get_rect() = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IControl> : com::extends<d2d::scene::layout::IElement> {
    static constexpr GUID id = com::guid("E5FEA52E-ACB7-41E0-AE18-24793533E500");
};
