// Transforms, and mapping between the spaces of nodes.

#include "com/object.h"
#include "scene/node.h"
#include "scene/node_bounds.h"
#include "scene/tree_walk.h"
#include "scene/view.h"

#include <array>
#include <cmath>
#include <stdexcept>

namespace d2d::scene {
namespace {

bool is_finite(const D2D_MATRIX_3X2_F& m) noexcept {
    return std::isfinite(m._11) && std::isfinite(m._12) && std::isfinite(m._21) && std::isfinite(m._22) &&
           std::isfinite(m._31) && std::isfinite(m._32);
}

/// The inverse of a matrix for a node. Throws `std::logic_error` when there is none.
D2D_MATRIX_3X2_F inverse_of(const D2D_MATRIX_3X2_F& matrix) {
    if (!is_finite(matrix)) throw std::logic_error("invalid transform received by d2d::scene::INode");
    // No negative zeros, here and below, so that the opposite movement is recognized byte for byte.
    if (is_translation(matrix)) return translation_matrix(0 - matrix._31, 0 - matrix._32);
    D2D_MATRIX_3X2_F inverse = matrix;
    if (!D2D1InvertMatrix(&inverse)) {
        throw std::logic_error("unable to invert transform received by d2d::scene::INode");
    }
    return {{{inverse._11 + 0, inverse._12 + 0, inverse._21 + 0, inverse._22 + 0, inverse._31 + 0,
              inverse._32 + 0}}};
}

/// The nodes from a root down to a node.
class ancestor_chain {
public:
    explicit ancestor_chain(INode* of) {
        if (!of) return;
        const com::ptr<node> bottom = com::internal_object<node>(of);
        for (const node* at = bottom.get(); at && first > 0; at = at->parent) nodes[--first] = at;
    }

    [[nodiscard]] std::size_t size() const noexcept { return nodes.size() - first; }
    [[nodiscard]] const node& operator[](std::size_t index) const noexcept { return *nodes[first + index]; }

private:
    std::size_t first = maximal_depth;
    std::array<const node*, maximal_depth> nodes;
};

}  // namespace

D2D_MATRIX_3X2_F node::get_transform() {
    return transform;
}

bool node::set_transform(const D2D_MATRIX_3X2_F& new_transform) {
    // Kept, though it says "unchanged" at the identity only: clients rely on what follows from it.
    if (same_bytes(new_transform, inverse)) return false;
    const bool shown = in_view_with_target();
    if (shown) view->invalidate(*this, true);
    const D2D_MATRIX_3X2_F new_inverse =
        is_identity(new_transform) ? new_transform : inverse_of(new_transform);
    const contribution before = contribution_of(*this);
    clip_flags = static_cast<std::uint8_t>(is_identity(new_transform) ? clip_flags & ~has_transform
                                                                      : clip_flags | has_transform);
    transform = new_transform;
    inverse = new_inverse;
    union_tree::child_changed(*this);
    propagate_transform_change(*this, before);
    if (shown && in_view_with_target()) view->invalidate(*this, true);
    return true;
}

D2D_MATRIX_3X2_F get_transformation_matrix(INode* from, INode* to) {
    const ancestor_chain source(from);
    const ancestor_chain target(to);
    std::size_t common = 0;
    while (common < source.size() && common < target.size() && &source[common] == &target[common]) ++common;
    D2D_MATRIX_3X2_F result = identity_matrix;
    for (std::size_t i = common; i < source.size(); ++i) result = multiply(source[i].transform, result);
    // Kept: the inverses are applied deepest first, and ahead of the way up, which clients that only move
    // their nodes never notice.
    for (std::size_t i = common; i < target.size(); ++i) result = multiply(target[i].inverse, result);
    return result;
}

void map_points(INode* from, INode* to, D2D_POINT_2F* points, unsigned count) {
    const D2D_MATRIX_3X2_F matrix = get_transformation_matrix(from, to);
    for (unsigned i = 0; i < count; ++i) points[i] = map_point(points[i], matrix);
}

}  // namespace d2d::scene
