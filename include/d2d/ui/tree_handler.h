#pragma once

#include "d2d/input/mouse.h"
#include "d2d/ui/ITreeNode.h"

#include <dcommon.h>

namespace d2d::ui {

/// What a tree view asks and tells its owner. Nodes are borrowed for the call. All operations may change the
/// tree, and may release the view.
class tree_handler {
public:
    /// Asked ahead of an expansion; false keeps the node closed. The place to add children on demand.
    virtual bool can_expand(ITreeNode* node) = 0;
    /// A node has been closed, by a click or by `set_expanded`. Not told of one that closes with its last
    /// child.
    virtual void collapsed(ITreeNode* node) = 0;
    /// The right button went down on a row.
    virtual void context_menu(ITreeNode* node) = 0;
    /// A press on a row has become a drag; the row is selected. `point` is where the press was, in the space
    /// of the row, in pixels.
    virtual void drag_begin(ITreeNode* node, D2D_POINT_2F point, input::mouse::button button) = 0;
    /// `old_node` is null when nothing was selected before.
    virtual void selection_changed(ITreeNode* old_node, ITreeNode* new_node) = 0;

protected:
    ~tree_handler() = default;
};

}  // namespace d2d::ui
