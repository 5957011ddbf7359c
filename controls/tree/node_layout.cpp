// Where rows stand. Each row lies under the one before it, a child's further to the right; the result is that
// of laying out the whole tree from its root, and what costs is what has moved.
//
// A node that is `placed` knows what it takes with all rows below it. A node whose own row has changed, or
// that has something not placed below it, is not. Behind a change the chain from the node up to the root goes
// on with the siblings that follow: it stops where nothing moves any more.

#include "controls/node_placement.h"
#include "controls/tree/node.h"
#include "controls/tree/view.h"

#include <algorithm>
#include <cmath>

namespace d2d::ui::tree {
namespace {

constexpr float expander_size = 12;
constexpr float spacing = 2;
constexpr float indentation = 14;

float centred(float size, float room) {
    return std::max(0.0f, std::floor((room - size) / 2));
}

}  // namespace

float node::row_height() const noexcept {
    return std::max(text_height, shown_in->icon_size());
}

void node::place_expander() {
    if (expander_node) move_node(*expander_node, {expander_size / 2, std::floor(row_height() / 2)});
}

void node::place_row(D2D_POINT_2F at) {
    const float icon_size = shown_in->icon_size();
    const float height = row_height();
    const float icon_left = expander_size + spacing;
    const float text_left = icon_left + state_icon_width() + icon_size + spacing;
    constexpr float text_border = 2;  // above and below the text, together
    move_node(*row_node, at);
    place_expander();
    move_node(*icon_node, {icon_left, centred(icon_size, height)});
    move_node(*text_node, {text_left, centred(text_height + text_border, height)});
    origin = at;
    row_bottom = at.y + height + spacing;
    row_right = at.x + text_left + text_width + spacing;
}

/// Places the node's row with its upper left corner at a point of the content, and the rows below it.
void node::place(D2D_POINT_2F at) {
    if (placed && origin.x == at.x && origin.y == at.y) return;
    place_row(at);
    place_children(0);
    set_placed(true);
}

/// Places the children from one on, whose size may have changed; those ahead of it are placed.
void node::place_children(std::size_t from) {
    if (expanded) {
        const float x = origin.x + indentation;
        float y = from == 0 ? row_bottom : children[from - 1]->subtree_bottom;
        float widest = from == 0 ? row_right : children[from - 1]->widest_so_far;
        for (std::size_t i = from; i < children.size(); ++i) {
            node& child = *children[i];
            const bool stays = child.placed && child.origin.x == x && child.origin.y == y;
            if (!stays) child.place({x, y});
            y = child.subtree_bottom;
            widest = std::max(widest, child.subtree_right);
            const bool same = i > from && stays && child.widest_so_far == widest;
            if (same && unplaced_children == 0) break;  // what follows depends on nothing else
            child.widest_so_far = widest;
        }
    }
    const bool below = expanded && !children.empty();
    subtree_bottom = below ? children.back()->subtree_bottom : row_bottom;
    subtree_right = below ? children.back()->widest_so_far : row_right;
}

void node::set_placed(bool value) noexcept {
    if (placed == value) return;
    placed = value;
    if (!parent) return;
    if (value) {
        --parent->unplaced_children;
    } else {
        ++parent->unplaced_children;
    }
}

/// Also all that show it, up to one that is closed: that one's place does not depend on what is below it.
void node::mark_unplaced() noexcept {
    for (node* at = this; at; at = at->parent) {
        at->set_placed(false);
        if (at->parent && !at->parent->expanded) return;
    }
}

void node::lay_out() {
    mark_unplaced();
    if (!is_row_shown()) return;
    if (!parent) place({0, 0});
    for (node* at = this; at->parent; at = at->parent) {
        at->parent->place_children(at->index);
        at->parent->set_placed(true);
    }
    shown_in->content_laid_out();
}

}  // namespace d2d::ui::tree
