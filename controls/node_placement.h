#pragma once

#include "d2d/scene/INode.h"

#include <dcommon.h>

namespace d2d {

// Translations of nodes that go through where `INode::set_transform` sees no change: at the inverse of the
// node's transform.

/// Moves a node's origin to a point of its parent. One that is there may stay untouched.
void move_node(scene::INode& node, D2D_POINT_2F origin);

/// The same for a node whose clip has changed with its place: asks for a repaint in any case.
void place_node(scene::INode& node, D2D_POINT_2F origin);

}  // namespace d2d
