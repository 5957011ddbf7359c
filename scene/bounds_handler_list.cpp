#include "scene/bounds_handler_list.h"

#include <utility>

namespace d2d::scene {

bounds_handler_list::running::running(bounds_handler_list& called) noexcept
    : owner(called), next(called.handlers.begin()), outer(called.innermost) {
    owner.innermost = this;
}

bounds_handler_list::running::~running() {
    owner.innermost = outer;
    if (outer) outer->removed.splice(outer->removed.end(), removed);
}

INode::bounds_token bounds_handler_list::add(INode::bounds_function handler) {
    return &handlers.emplace_back(std::move(handler));
}

void bounds_handler_list::remove(INode::bounds_token token) noexcept {
    auto entry = handlers.begin();
    while (entry != handlers.end() && &*entry != token) ++entry;
    if (entry == handlers.end()) return;
    for (running* call = innermost; call; call = call->outer) {
        if (call->next == entry) ++call->next;
    }
    if (innermost) {
        innermost->removed.splice(innermost->removed.end(), handlers, entry);
    } else {
        handlers.erase(entry);
    }
}

void bounds_handler_list::clear() noexcept {
    for (running* call = innermost; call; call = call->outer) call->next = handlers.end();
    if (innermost) {
        innermost->removed.splice(innermost->removed.end(), handlers);
    } else {
        handlers.clear();
    }
}

void bounds_handler_list::call(const extent& bounds) {
    running call(*this);
    while (call.next != handlers.end()) {
        const auto entry = call.next++;
        (*entry)(bounds.valid, bounds.rect);
    }
}

}  // namespace d2d::scene
