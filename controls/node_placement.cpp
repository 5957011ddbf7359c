#include "controls/node_placement.h"

#include "scene/matrix.h"

namespace d2d {
namespace {

/// Sets a translation that the node takes for no change, by way of one that differs in the sign of a zero.
void insist(scene::INode& node, const D2D_MATRIX_3X2_F& translation) {
    D2D_MATRIX_3X2_F same_but_for_bytes = translation;
    same_but_for_bytes._12 = -0.0f;
    node.set_transform(same_but_for_bytes);
    node.set_transform(translation);
}

}  // namespace

void move_node(scene::INode& node, D2D_POINT_2F origin) {
    const D2D_MATRIX_3X2_F translation = scene::translation_matrix(origin.x, origin.y);
    if (!node.set_transform(translation) && !scene::is_identity(translation)) insist(node, translation);
}

void place_node(scene::INode& node, D2D_POINT_2F origin) {
    const D2D_MATRIX_3X2_F translation = scene::translation_matrix(origin.x, origin.y);
    if (!node.set_transform(translation)) insist(node, translation);
}

}  // namespace d2d
