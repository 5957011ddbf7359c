#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/scene/INode.h"

#include <windows.h>

namespace d2d::scene {

/// The handle on a floated node: one that is shown in a borderless window of its own, which has the size of
/// the node's bounds, follows them as they change, and may reach beyond the window of the scene around it.
/// The node floats for as long as somebody holds the handle, and is free again behind its last release, which
/// may come inside a handler of the node.
///
///     const auto floating = d2d::scene::IFloatingNode::float_node(control_node, list_node);
struct IFloatingNode : IUnknown {
    /// Floats nodes for one window. A service of a scene that can float; its identifier as a service is this
    /// interface's.
    struct IService : IUnknown {
        /// Shows `content`, a free node, with its (0, 0) where that of `context` is on the screen just now;
        /// it follows no later moves of `context`. `content` is kept. A `content` whose hit mode is
        /// `INode::hit_transparent` lets the mouse through to what is beneath. Throws `std::logic_error` for
        /// a node that has a parent or is in a view, `win32::error` and `com::error` when there can be no
        /// window. Messages of the new window arrive meanwhile.
        virtual com::ptr<IFloatingNode> float_node(INode* context, INode* content) = 0;
    };

    /// Floats `content` by the service that `context` reaches in its view. Throws `com::error` when there is
    /// none (outside a view there never is), and otherwise like the service.
    [[nodiscard]] MOSSHARBOUR_API static com::ptr<IFloatingNode> float_node(INode* context, INode* content);
};

/// A service that floats nodes above `window`, for a scene that has its (0, 0) in the corner of the window's
/// client area. `d2d::win32_scene_window` installs one by itself; other hosts are given one with
/// `install_service`.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IFloatingNode::IService> create_floating_node_service(HWND window);

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IFloatingNode> : com::extends<> {
    static constexpr GUID id = com::guid("BE644265-2675-4197-BC80-E17FE14B6B4D");
};

template <>
struct com::interface_traits<d2d::scene::IFloatingNode::IService> : com::extends<> {
    static constexpr GUID id = com::guid("D4A069E1-625A-4020-B6F8-9EE8D6B4246C");
};
