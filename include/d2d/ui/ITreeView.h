#pragma once

#include "com/api.h"
#include "d2d/ui/IControl.h"
#include "d2d/ui/ITreeNode.h"
#include "d2d/ui/tree_handler.h"

namespace d2d::ui {

/// A scrollable tree of rows, below one root that is a row too. At most one row is selected. The keyboard
/// does not operate it. It takes colours and font from the system's settings, as they are when it is made.
struct ITreeView : IControl {
    /// Shows a tree, null for none; the root is kept. Rows of the former root stay for as long as somebody
    /// holds its nodes: kept, take them out first with `ITreeNode::remove_child`, or release them. Throws
    /// `std::logic_error` for a node that has a parent, `com::error` when rows cannot be laid out: the former
    /// root stays then.
    virtual void set_root(ITreeNode* root) = 0;
    /// Borrowed, null for none: it has to stay until it is replaced or the view is gone.
    virtual void set_handler(tree_handler* handler) = 0;
    /// Selects a row, and tells the handler unless it is selected already. Throws `std::logic_error` "tree
    /// node must be in tree" for a node that is not in this view.
    virtual void select(ITreeNode* node) = 0;
    /// The entry whose row shows at a point in the space of the view's node, or null.
    virtual com::ptr<ITreeNode> node_at(D2D_POINT_2F point) = 0;

    /// A view without a root.
    [[nodiscard]] MOSSHARBOUR_API static com::ptr<ITreeView> create();
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ITreeView> : com::extends<d2d::ui::IControl> {
    static constexpr GUID id = com::guid("47D3A0C8-91EB-4F26-B5D4-0E8C73F16A95");
};
