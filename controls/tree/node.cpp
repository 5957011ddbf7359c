#include "controls/tree/node.h"

#include "com/object.h"
#include "controls/node_placement.h"
#include "controls/tree/view.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace d2d::ui::tree {

node& node::from(ITreeNode* given) {
    auto* const found = dynamic_cast<node*>(given);
    if (!found) throw std::logic_error("bad tree node type");
    return *found;
}

node::~node() {
    const scene_nodes dropped = forget_rows();
    for (const auto& child : children) child->parent = nullptr;
    detach_rows(dropped);
}

void node::set_icon(scene::IBitmap* new_icon) {
    icon = new_icon;
    draw_icons();
}

void node::set_state_icon(scene::IBitmap* new_icon) {
    state_icon = new_icon;
    draw_icons();
    if (shown_in) lay_out();
}

void node::set_text(const wchar_t* new_text, std::size_t length) {
    const std::wstring_view given(new_text, length);
    if (text == given) return;
    std::wstring former = std::exchange(text, std::wstring(given));
    if (!shown_in) return;
    try {
        make_layout();
    } catch (...) {
        text = std::move(former);
        throw;
    }
    redraw_text();
    lay_out();
}

bool node::is_below(const node& other) const noexcept {
    for (const node* at = this; at; at = at->parent) {
        if (at == &other) return true;
    }
    return false;
}

void node::take_from_owner() {
    if (parent) {
        parent->take_out(*this);
    } else if (shown_in) {
        shown_in->drop_root(*this);
        leave();
    }
}

void node::add_child(ITreeNode* given) {
    node& child = from(given);
    if (is_below(child)) throw std::logic_error("a tree node can't be put below itself");
    const com::ptr<node> keep(&child);
    child.take_from_owner();
    if (shown_in) child.enter(*shown_in);  // ahead of the rest: what has no row gets no place
    child.index = children.size();
    children.push_back(keep);
    child.parent = this;
    if (!shown_in) return;
    update_expander();
    ++unplaced_children;
    if (!expanded) return;
    child.lay_out();
    if (is_row_shown()) child.show();
}

void node::remove_child(ITreeNode* given) {
    node& child = from(given);
    if (child.parent == this) take_out(child);
}

void node::take_out(node& child) {
    const com::ptr<node> keep(&child);
    const com::ptr<node> keep_this(this);
    const std::size_t place = child.index;
    children.erase(children.begin() + static_cast<std::ptrdiff_t>(place));
    renumber_children(place);
    if (shown_in && !child.placed) --unplaced_children;
    child.parent = nullptr;
    const bool closes = children.empty() && std::exchange(expanded, false);
    child.leave();
    if (!shown_in) return;
    update_expander();
    if (closes && expander_node) draw_expander();
    if (place < children.size()) {
        children[place]->lay_out();
    } else {
        lay_out();
    }
}

void node::renumber_children(std::size_t from) noexcept {
    for (std::size_t i = from; i < children.size(); ++i) children[i]->index = i;
}

void node::set_expandable(bool value) {
    expandable = value;
    if (shown_in) update_expander();
}

void node::set_expanded(bool value) {
    if (!shown_in || !expander_node) {
        expanded = value;
    } else if (expanded != value) {
        toggle();
    }
}

void node::set_highlighted(bool value) {
    if (std::exchange(highlighted, value) != value) redraw_text();
}

void node::set_selected(bool value) {
    selected = value;
    redraw_text();
}

/// Whether the row stands in the content of the view: all of its ancestors are expanded.
bool node::is_row_shown() const noexcept {
    for (const node* at = parent; at; at = at->parent) {
        if (!at->expanded) return false;
    }
    return true;
}

void node::toggle() {
    const com::ptr<node> keep(this);
    if (expanded) {
        collapse();
    } else {
        expand();
    }
}

void node::expand() {
    const auto keep = shown_in->keep_alive();
    if (!shown_in->may_expand(*this)) return;
    if (!shown_in || !expander_node || expanded) return;  // the owner has had its turn
    expanded = true;
    draw_expander();
    lay_out();
    if (!is_row_shown()) return;
    for (const auto& child : children) child->show();
}

void node::collapse() {
    const auto keep = shown_in->keep_alive();
    expanded = false;
    draw_expander();
    hide_children();
    if (expanded || !shown_in) return;  // somebody has heard of a row that is gone
    lay_out();
    shown_in->tell_collapsed(*this);
}

}  // namespace d2d::ui::tree

namespace d2d::ui {

com::ptr<ITreeNode> ITreeNode::create() {
    return com::create_object<tree::node>();
}

}  // namespace d2d::ui
