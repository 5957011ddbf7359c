#pragma once

#include "d2d/scene/INode.h"
#include "scene/extent.h"

#include <list>

namespace d2d::scene {

/// The bounds handlers of a node, in the order of their adding. A handler may add and remove handlers, itself
/// too, while they are being called: one that is added is called as well, one that is removed is not called
/// any more, and is destroyed when the outermost call has ended.
class bounds_handler_list {
public:
    bounds_handler_list() noexcept = default;
    bounds_handler_list(const bounds_handler_list&) = delete;
    bounds_handler_list& operator=(const bounds_handler_list&) = delete;
    ~bounds_handler_list() = default;

    [[nodiscard]] bool empty() const noexcept { return handlers.empty(); }

    INode::bounds_token add(INode::bounds_function handler);
    /// An unknown token is ignored.
    void remove(INode::bounds_token token) noexcept;
    void clear() noexcept;

    /// Calls all handlers. What one throws passes on, and the others are not called. The node is kept by the
    /// caller.
    void call(const extent& bounds);

private:
    using list = std::list<INode::bounds_function>;

    /// A running call: where it goes on, and what was removed meanwhile.
    struct running {
        explicit running(bounds_handler_list& called) noexcept;
        running(const running&) = delete;
        running& operator=(const running&) = delete;
        ~running();

        /// What is called now is leaving; `after` follows it.
        void skip_to(list::iterator after) noexcept;

        bounds_handler_list& owner;
        list::iterator at;
        bool skipped = false;  // `at` stands on the next one already
        running* outer;
        list removed;
    };

    list handlers;
    running* innermost = nullptr;
};

}  // namespace d2d::scene
