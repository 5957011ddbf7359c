// Keyboard: keys and characters along the chain of the focus node, and the focus itself.

#include "com/object.h"
#include "scene/node.h"
#include "scene/node_chain.h"
#include "scene/view.h"

#include <utility>

namespace d2d::scene {
namespace {

void call_focus_handler(node& at, INode* old_focus, INode* new_focus) {
    at.focus_handler.call(old_focus, new_focus);
}

/// Tells the nodes above two focus nodes that want to hear of their descendants: those above both from the
/// root down, then the others from the top of each chain, in turn.
void tell_ancestors(node& old_focus, node& new_focus) {
    const node_chain old_chain(old_focus);
    const node_chain new_chain(new_focus);
    const auto tell = [&](node& at) {
        if (at.content_flags & node::focus_of_descendants) call_focus_handler(at, &old_focus, &new_focus);
    };
    // What is left of each chain, without the focus node itself.
    std::size_t old_left = old_chain.size();
    std::size_t new_left = new_chain.size();
    while (old_left > 1 && new_left > 1 && &old_chain[old_left - 1] == &new_chain[new_left - 1]) {
        tell(old_chain[old_left - 1]);
        --old_left;
        --new_left;
    }
    while (old_left > 1 || new_left > 1) {
        if (old_left > 1) tell(old_chain[--old_left]);
        if (new_left > 1) tell(new_chain[--new_left]);
    }
}

void send_focus_change(const com::ptr<node>& old_focus, const com::ptr<node>& new_focus) {
    if (old_focus && new_focus) tell_ancestors(*old_focus, *new_focus);
    if (old_focus) call_focus_handler(*old_focus, old_focus.get(), new_focus.get());
    if (new_focus) call_focus_handler(*new_focus, old_focus.get(), new_focus.get());
}

}  // namespace

bool view::on_key_event(input::key::event event) {
    if (!focus_node) return false;
    const com::ptr<view> keep = this;
    const node_chain chain(*focus_node);
    return chain.route([&](node& at, int depth) { return at.key_handler.call(&at, depth, event); });
}

void view::on_char(wchar_t character) {
    if (!focus_node) return;
    const com::ptr<view> keep = this;
    const node_chain chain(*focus_node);
    // Kept: unlike a key, a character names the focus node to every handler.
    static_cast<void>(chain.route([&, target = &chain[0]](node& at, int depth) {
        return at.char_handler.call(target, depth, character);
    }));
}

void view::on_focus_gained() {
    has_focus = true;
    if (const com::ptr<node> target = focus_node) call_focus_handler(*target, nullptr, target.get());
}

void view::on_focus_lost() {
    if (!std::exchange(has_focus, false)) return;
    if (const com::ptr<node> target = focus_node) call_focus_handler(*target, target.get(), nullptr);
}

void view::set_focus(node& target) {
    const com::ptr<node> next = &target;
    const com::ptr<node> former = std::exchange(focus_node, next);
    if (has_focus) {
        send_focus_change(former, next);
    } else if (site) {
        site->request_focus();
    }
}

void view::release_focus(node& target) {
    if (focus_node != &target) return;
    const com::ptr<node> former = std::exchange(focus_node, nullptr);
    send_focus_change(former, nullptr);
}

bool view::is_focus(const node& target, bool or_descendant) const noexcept {
    if (!has_focus || !focus_node) return false;
    return or_descendant ? target.is_above(*focus_node) : focus_node == &target;
}

}  // namespace d2d::scene
