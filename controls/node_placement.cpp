#include "controls/node_placement.h"

#include "scene/matrix.h"

#include <cmath>

namespace d2d {
namespace {

/// Sets a transform that the node takes for no change, by way of one that is next to it.
void insist(scene::INode& node, const D2D_MATRIX_3X2_F& transform) {
    D2D_MATRIX_3X2_F other = transform;
    // The sign of a zero is enough: nothing shows elsewhere in between.
    other._12 = other._12 == 0 ? -other._12 : std::nextafter(other._12, 0.0f);
    node.set_transform(other);
    node.set_transform(transform);
}

}  // namespace

void detach_node(scene::INode& node) {
    if (const auto parent = node.get_parent()) parent->remove_child(&node);
}

void transform_node(scene::INode& node, const D2D_MATRIX_3X2_F& transform) {
    if (node.set_transform(transform) || scene::same_bytes(node.get_transform(), transform)) return;
    insist(node, transform);
}

void move_node(scene::INode& node, D2D_POINT_2F origin) {
    transform_node(node, scene::translation_matrix(origin.x, origin.y));
}

void place_node(scene::INode& node, D2D_POINT_2F origin) {
    const D2D_MATRIX_3X2_F translation = scene::translation_matrix(origin.x, origin.y);
    if (!node.set_transform(translation)) insist(node, translation);
}

}  // namespace d2d
