#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/scene/INode.h"

namespace d2d::scene {

/// Shows a tree of nodes: the bridge between the tree and a host. The object is also the
/// `d2d::IViewLowerEdge` that a host drives, and an `IServiceProvider` that asks the host.
struct IView : IUnknown {
    /// Shows the tree below `root`; null for none. Throws `std::logic_error` when the node has a parent or is
    /// in a view. An owner takes the root out ahead of dropping the view.
    virtual void set_root(com::ptr<INode> root) = 0;
};

/// A view without a root and without a host.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IView> create_view();

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IView> : com::extends<> {
    static constexpr GUID id = com::guid("054AC459-7FAB-4114-8ED5-710ACE24CEEC");
};
