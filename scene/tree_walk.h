#pragma once

#include "scene/node.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <type_traits>

namespace d2d::scene {

/// How deep a tree may be: walks keep their way on the machine's stack and allocate nothing. Not checked.
inline constexpr std::size_t maximal_depth = 32;

/// Where a walk over the children of `at` goes on behind `last`, which stood ahead of `next`: children may
/// have been taken away meanwhile.
[[nodiscard]] inline std::size_t place_behind(const node& at, const node* last, std::size_t next) noexcept {
    const auto& children = at.children;
    if (!last || (next <= children.size() && children[next - 1] == last)) return next;
    const auto found = std::find(children.begin(), children.end(), last);
    return found == children.end() ? next - 1 : static_cast<std::size_t>(found - children.begin()) + 1;
}

/// Walks a subtree, children in drawing order. `enter(node&)` is called ahead of a node's children and tells
/// whether they are visited; `leave(node&)` is called behind them, or behind `enter` when they are not.
///
/// Where the two run clients' functions, `Held` is a `com::ptr`: nodes that are taken from the tree meanwhile
/// live until the walk has left them, and those beside them are not passed over.
template <class Held = node*, class Enter, class Leave>
void walk_tree(node& top, Enter&& enter, Leave&& leave) {
    struct level {
        Held at;
        std::size_t next_child;
        Held last_child;
    };
    constexpr bool may_change = !std::is_pointer_v<Held>;
    std::array<level, maximal_depth> levels;
    std::size_t depth = 0;
    const auto visit = [&](node& at) {
        [[maybe_unused]] const Held held = &at;
        if (!enter(at) || at.children.empty()) return leave(at);
        assert(depth < maximal_depth);
        levels[depth++] = {&at, 0, nullptr};
    };
    visit(top);
    while (depth > 0) {
        level& current = levels[depth - 1];
        if constexpr (may_change)
            current.next_child = place_behind(*current.at, current.last_child.get(), current.next_child);
        if (current.next_child < current.at->children.size()) {
            node& child = *current.at->children[current.next_child++];
            if constexpr (may_change) current.last_child = &child;
            visit(child);
        } else {
            --depth;
            leave(*current.at);
            current.at = current.last_child = nullptr;
        }
    }
}

/// Calls `function(node&)` for the nodes of a subtree, parents first.
template <class Function>
void walk_parents_first(node& top, Function&& function) {
    walk_tree(
        top,
        [&](node& at) {
            function(at);
            return true;
        },
        [](node&) {});
}

/// Calls `function(node&)` for the nodes of a subtree, children first. It may run clients' functions.
template <class Function>
void walk_children_first(node& top, Function&& function) {
    walk_tree<com::ptr<node>>(
        top, [](node&) { return true; }, function);
}

}  // namespace d2d::scene
