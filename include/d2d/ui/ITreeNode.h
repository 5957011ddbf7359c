#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "d2d/scene/IBitmap.h"
#include "d2d/scene/INode.h"

#include <cstddef>

namespace d2d::ui {

/// An entry of a tree view, with children of its own. It can be put together before there is a view, and gets
/// what is needed to show it when it enters one: with `ITreeView::set_root`, or with `add_child` to a node
/// that is in one. Operations that take a node accept those of `create` alone and throw `std::logic_error`
/// "bad tree node type" for others and for null.
struct ITreeNode : IUnknown {
    /// A word of the client's own, null at first.
    virtual void* get_data() const = 0;
    virtual void set_data(void* data) = 0;
    /// The main icon, 16 by 16 pixels; kept, null for none.
    virtual void set_icon(scene::IBitmap* icon) = 0;
    /// UTF-16 text, copied; `length` in units. Throws `com::error` when it cannot be laid out.
    virtual void set_text(const wchar_t* text, std::size_t length) = 0;
    /// A second icon on the left of the main one; kept, null for none.
    virtual void set_state_icon(scene::IBitmap* icon) = 0;
    /// Appends a child, and keeps it. A child that has another place already is taken from there. Throws
    /// `std::logic_error` for a node that this one is below of, `com::error` when rows cannot be laid out:
    /// the child has no place then.
    virtual void add_child(ITreeNode* child) = 0;
    /// Takes a child out, and out of the view. With the last one the node collapses. Does nothing for a node
    /// that is no child of this one.
    virtual void remove_child(ITreeNode* child) = 0;
    /// Whether there is an expander also while there are no children, so that `tree_handler::can_expand` can
    /// bring some.
    virtual void set_expandable(bool expandable) = 0;
    /// Without an expander the value is kept until there is one. Otherwise like a click on the expander: the
    /// view's handler is asked, and told.
    virtual void set_expanded(bool expanded) = 0;
    virtual bool is_expanded() const = 0;
    virtual bool is_selected() const = 0;
    /// Shows the node as if the mouse were over it: a target to drop something on, say.
    virtual void set_highlighted(bool highlighted) = 0;
    /// A free node that shows icon and text, with a light shadow for dark grounds, to be moved or floated
    /// while the entry is dragged: its upper left corner is the node's origin. There is no text in it while
    /// the entry is in no view.
    virtual com::ptr<scene::INode> create_drag_image() = 0;

    /// A node without text, icons and children.
    [[nodiscard]] MOSSHARBOUR_API static com::ptr<ITreeNode> create();
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ITreeNode> : com::extends<> {
    static constexpr GUID id = com::guid("9B1E6F52-38C4-4D7A-8E05-64A1D2C97F3B");
};
