#pragma once

#include "d2d/scene/INode.h"

#include <dcommon.h>

namespace d2d {

/// Takes a node out of its parent, if it has one.
void detach_node(scene::INode& node);

// Transforms of nodes that go through where `INode::set_transform` sees no change: at the inverse of the
// node's transform.

/// Sets a node's transform. One that has it may stay untouched.
void transform_node(scene::INode& node, const D2D_MATRIX_3X2_F& transform);

/// Moves a node's origin to a point of its parent. One that is there may stay untouched.
void move_node(scene::INode& node, D2D_POINT_2F origin);

/// The same for a node whose clip has changed with its place: asks for a repaint in any case.
void place_node(scene::INode& node, D2D_POINT_2F origin);

}  // namespace d2d
