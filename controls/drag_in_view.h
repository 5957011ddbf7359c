#pragma once

#include "com/object.h"
#include "d2d/scene/INode.h"
#include "scene/node.h"

#include <utility>

namespace d2d {

// What a press asks of a node that a handler may have taken out of its view meanwhile: it has no pointer to
// follow then.

[[nodiscard]] inline bool is_in_view(scene::INode& node) {
    const auto inner = com::internal_object<scene::node>(&node);
    return inner && inner->view;
}

[[nodiscard]] inline bool drag_detect_in_view(scene::INode& node, input::mouse::button pressed) {
    return is_in_view(node) && node.drag_detect(pressed);
}

inline void drag_in_view(scene::INode& node, input::mouse::button pressed,
                         scene::INode::drag_function moved) {
    if (is_in_view(node)) node.drag_loop(pressed, std::move(moved));
}

}  // namespace d2d
