#pragma once

#include "com/ptr.h"
#include "controls/tree/looks.h"
#include "controls/tree/node.h"
#include "d2d/ui/IScrollArea.h"
#include "d2d/ui/tree_handler.h"

#include <vector>

namespace d2d::ui::tree {

/// What shows a tree: a scroll area with one content node, whose children are the rows that are to be seen.
/// The hierarchy is that of the tree's nodes alone.
class view {
public:
    /// `owning` is the object that this is part of: borrowed, and kept alive while the handler is called.
    explicit view(IUnknown& owning);
    view(const view&) = delete;
    view& operator=(const view&) = delete;
    ~view();

    void set_root(node* new_root);
    void set_handler(tree_handler* new_handler) noexcept { handler = new_handler; }
    void select(node& chosen);
    [[nodiscard]] com::ptr<ITreeNode> node_at(D2D_POINT_2F point);
    [[nodiscard]] IScrollArea& area() const noexcept { return *scroll_area; }

    // For the nodes.
    [[nodiscard]] com::ptr<IUnknown> keep_alive() const noexcept { return &owner; }
    [[nodiscard]] scene::INode& content_node() const noexcept { return *content; }
    [[nodiscard]] const looks& look() const noexcept { return drawn_with; }
    [[nodiscard]] float icon_size() const noexcept { return large_icons ? 32.0f : 16.0f; }
    [[nodiscard]] bool has_focus() const { return content->has_focus(true); }
    /// Lets `node_at` find the node of a row.
    static void tag_row(scene::INode& row, node& shown);
    void content_laid_out();
    void redraw_selected();
    /// A root goes to another place.
    void drop_root(node& former);
    // Nodes in the view that are selected: one at most, but for those that come in selected.
    void add_selected(node& entered) { selected.push_back(&entered); }
    void remove_selected(node& left) { std::erase(selected, &left); }

    // The handler, if there is one. It may release the view: use `keep_alive`.
    [[nodiscard]] bool may_expand(node& asked);
    void tell_collapsed(node& told);
    void open_context_menu(node& clicked);
    void begin_drag(node& dragged, D2D_POINT_2F point, input::mouse::button button);

    bool large_icons = false;  // takes effect when a row is laid out

private:
    IUnknown& owner;
    const com::ptr<IScrollArea> scroll_area;
    com::ptr<node> root;
    tree_handler* handler = nullptr;
    const com::ptr<scene::INode> content = scene::create_node();
    const looks drawn_with;
    std::vector<node*> selected;
    std::vector<com::weak_ptr<node>> former_roots;  // whose rows are still here
};

}  // namespace d2d::ui::tree
