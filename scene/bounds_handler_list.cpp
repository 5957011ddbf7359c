#include "scene/bounds_handler_list.h"

#include <iterator>
#include <utility>

namespace d2d::scene {

bounds_handler_list::running::running(bounds_handler_list& called) noexcept
    : owner(called), at(called.handlers.begin()), outer(called.innermost) {
    owner.innermost = this;
}

bounds_handler_list::running::~running() {
    owner.innermost = outer;
    if (outer) outer->removed.splice(outer->removed.end(), removed);
}

void bounds_handler_list::running::skip_to(list::iterator after) noexcept {
    at = after;
    skipped = true;
}

INode::bounds_token bounds_handler_list::add(INode::bounds_function handler) {
    return &handlers.emplace_back(std::move(handler));
}

void bounds_handler_list::remove(INode::bounds_token token) noexcept {
    auto entry = handlers.begin();
    while (entry != handlers.end() && &*entry != token) ++entry;
    if (entry == handlers.end()) return;
    for (running* call = innermost; call; call = call->outer) {
        if (call->at == entry) call->skip_to(std::next(entry));
    }
    if (innermost) {
        innermost->removed.splice(innermost->removed.end(), handlers, entry);
    } else {
        handlers.erase(entry);
    }
}

void bounds_handler_list::clear() noexcept {
    for (running* call = innermost; call; call = call->outer) call->skip_to(handlers.end());
    if (innermost) {
        innermost->removed.splice(innermost->removed.end(), handlers);
    } else {
        list cleared;  // what dies in it may come back to an empty list
        cleared.swap(handlers);
    }
}

void bounds_handler_list::call(const extent& bounds) {
    running call(*this);
    while (call.at != handlers.end()) {
        call.skipped = false;
        (*call.at)(bounds.valid, bounds.rect);
        if (!call.skipped) ++call.at;
    }
}

}  // namespace d2d::scene
