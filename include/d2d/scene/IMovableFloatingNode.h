#pragma once

#include "d2d/scene/IFloatingNode.h"

namespace d2d::scene {

/// A floated node that can be moved, and exchanged for another: a drag image, say. What is set shows with
/// `commit`; what the content itself changes shows at once.
struct IMovableFloatingNode : IFloatingNode {
    /// The node to show from the next `commit` on, which is kept.
    virtual void set_content(INode* node) = 0;
    /// Where the content's (0, 0) goes, in screen pixels; a fraction counts. Applied by the next `commit`, or
    /// by a change of the content's bounds ahead of it.
    virtual void set_position(D2D_POINT_2F point) = 0;
    /// Shows what was set; does nothing when that is what is shown. The former content is free behind it.
    /// Throws `std::logic_error` when the new content is null, has a parent or is in a view; nothing is the
    /// content then, until another is set and committed. Throws `com::error` when it cannot be painted.
    virtual void commit() = 0;
};

/// Floats `content`, a free node, with its (0, 0) at `point` on the screen, in pixels. The window is owned by
/// `parent`, stays above it and dies with it. Throws `std::logic_error` when `content` is null, has a parent
/// or is in a view, `win32::error` and `com::error` when there can be no window. Messages of the new window
/// arrive meanwhile. A `d2d::factory` has to be alive.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IMovableFloatingNode> create_floating_node(HWND parent,
                                                                                  D2D_POINT_2F point,
                                                                                  INode* content);
/// The same; `transparent` lets the mouse through to what is beneath, and does not activate the window.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IMovableFloatingNode> create_floating_node(HWND parent,
                                                                                  bool transparent,
                                                                                  D2D_POINT_2F point,
                                                                                  INode* content);

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IMovableFloatingNode> : com::extends<d2d::scene::IFloatingNode> {
    static constexpr GUID id = com::guid("8110B4C9-4211-4F5C-906B-A946550CB5BB");
};
