#pragma once

#include "com/base_object.h"
#include "controls/tree/view.h"
#include "d2d/ui/ITreeView.h"

namespace d2d::ui::tree {

/// The tree view as clients see it.
class control : public com::base_object<com::object_base, ITreeView> {
public:
    void final_construct();

    // IElement
    scene::layout::metrics measure() override { return shown.area().measure(); }
    void arrange(D2D_RECT_F rect) override { shown.area().arrange(rect); }
    // IControl
    com::ptr<scene::INode> get_node() override { return shown.area().get_node(); }
    D2D_RECT_F get_rect() override { return shown.area().get_rect(); }
    // ITreeView
    void set_root(ITreeNode* root) override { shown.set_root(root ? &node::from(root) : nullptr); }
    void set_handler(tree_handler* handler) override { shown.set_handler(handler); }
    void select(ITreeNode* chosen) override { shown.select(node::from(chosen)); }
    com::ptr<ITreeNode> node_at(D2D_POINT_2F point) override { return shown.node_at(point); }

    [[nodiscard]] view& get_view() noexcept { return shown; }

protected:
    ~control() = default;

private:
    view shown{*get_IUnknown()};
};

}  // namespace d2d::ui::tree
