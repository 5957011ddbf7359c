#include "scene/union_tree.h"

#include "scene/node.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace d2d::scene {

union_tree::union_tree(node& owner) {
    children.reserve(owner.children.size());
    for (const auto& child : owner.children) insert(*child);
}

union_tree* union_tree::of(node& owner) {
    if (owner.children.size() < fewest_children) {
        if (owner.lookup) owner.lookup->unions.reset();
        return nullptr;
    }
    auto& tree = owner.child_lookup_of_many().unions;
    if (!tree) tree = std::make_unique<union_tree>(owner);
    return tree.get();
}

void union_tree::child_added(node& parent, node& child) {
    if (!parent.lookup || !parent.lookup->unions) return;
    // Out of its place meanwhile: an insertion that fails leaves the node without a tree.
    auto tree = std::move(parent.lookup->unions);
    tree->insert(child);
    parent.lookup->unions = std::move(tree);
}

void union_tree::child_removed(node& parent, node& child) noexcept {
    if (parent.lookup && parent.lookup->unions) parent.lookup->unions->erase(child);
}

void union_tree::child_changed(const node& child) noexcept {
    const node* const parent = child.parent;
    if (parent && parent->lookup && parent->lookup->unions)
        parent->lookup->unions->mark(child.slot_in_parent);
}

void union_tree::insert(node& child) {
    if (free_slots.empty()) {
        child.slot_in_parent = static_cast<std::uint32_t>(children.size());
        children.push_back(&child);
        free_slots.reserve(children.capacity());  // so that a removal never fails
        for (std::size_t height = 0, slots = children.size(); height == 0 || slots > 1; ++height) {
            slots = (slots + width - 1) / width;
            if (height == levels.size()) levels.emplace_back();
            levels[height].resize(std::max(slots, levels[height].size()));
        }
    } else {
        child.slot_in_parent = free_slots.back();
        free_slots.pop_back();
        children[child.slot_in_parent] = &child;
    }
    mark(child.slot_in_parent);
}

void union_tree::erase(const node& child) noexcept {
    children[child.slot_in_parent] = nullptr;
    free_slots.push_back(child.slot_in_parent);
    mark(child.slot_in_parent);
}

void union_tree::mark(std::size_t slot) noexcept {
    for (level& each : levels) {
        slot /= width;
        if (std::exchange(each[slot].is_marked, true)) return;
    }
}

void union_tree::reaches::add(const extent& more_bounds, const extent& more_hit) noexcept {
    if (more_bounds.valid) bounds.add(more_bounds.rect);
    if (more_hit.valid) hit.add(more_hit.rect);
}

void union_tree::work_out(std::size_t height, std::size_t index) noexcept {
    reaches total;
    total.is_marked = false;
    const std::size_t first = index * width;
    if (height == 0) {
        for (std::size_t i = first; i < std::min(first + width, children.size()); ++i) {
            if (const node* const child = children[i]) {
                total.add(child->subtree_extent().mapped(child->transform),
                          child->subtree_hit_extent().mapped(child->transform));
            }
        }
    } else {
        level& below = levels[height - 1];
        for (std::size_t i = first; i < std::min(first + width, below.size()); ++i) {
            if (below[i].is_marked) work_out(height - 1, i);
            total.add(below[i].bounds, below[i].hit);
        }
    }
    levels[height][index] = total;
}

extent union_tree::united(extent reaches::*which) noexcept {
    const std::size_t top = levels.size() - 1;
    if (levels[top][0].is_marked) work_out(top, 0);
    return levels[top][0].*which;
}

}  // namespace d2d::scene
