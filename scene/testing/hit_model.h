#pragma once

#include "scene/testing/tree_model.h"

#include <vector>

namespace d2d::scene::fakes {

/// A node for hit tests as plain data: it records at most one shape behind its children and one in front of
/// them, and asks every child at each test. Shapes contain all points of their bounds, edges included.
struct hit_model : tree_model {
    area clip;
    area back;
    area front;

    struct step {
        const hit_model* at;
        D2D_POINT_2F point;
    };
    using path = std::vector<step>;

    /// To be called when `back` or `front` has changed.
    void recorded() {
        content = unite(back, front);
        update_own_hit();
    }

    /// The way from this root to what is hit at a point of the space above it.
    [[nodiscard]] path path_at(D2D_POINT_2F point) const {
        path result;
        search(point, {{{1, 0, 0, 1, 0, 0}}}, result);
        return result;
    }
    /// The same below this node, in its space.
    [[nodiscard]] path path_below(D2D_POINT_2F point) const {
        path result;
        search_children(point, {{{1, 0, 0, 1, 0, 0}}}, result);
        return result;
    }

private:
    static bool in(const area& rect, D2D_POINT_2F p) {
        return rect && rect->left <= p.x && p.x < rect->right && rect->top <= p.y && p.y < rect->bottom;
    }
    static bool in_shape(const area& rect, D2D_POINT_2F p) {
        return rect && rect->left <= p.x && p.x <= rect->right && rect->top <= p.y && p.y <= rect->bottom;
    }
    [[nodiscard]] bool is_moved() const {
        return transform._11 != 1 || transform._12 != 0 || transform._21 != 0 || transform._22 != 1 ||
               transform.dx != 0 || transform.dy != 0;
    }

    bool search(D2D_POINT_2F origin, const D2D_MATRIX_3X2_F& outer, path& way) const {
        const D2D_MATRIX_3X2_F matrix = is_moved() ? product(outer, inverse) : outer;
        const D2D_POINT_2F p{origin.x * matrix._11 + origin.y * matrix._21 + matrix.dx,
                             origin.x * matrix._12 + origin.y * matrix._22 + matrix.dy};
        way.push_back({this, p});
        if (is_hit_at(p, origin, matrix, way)) return true;
        way.pop_back();
        return false;
    }
    /// Whether this node, the last one of the way, stays there.
    bool is_hit_at(D2D_POINT_2F p, D2D_POINT_2F origin, const D2D_MATRIX_3X2_F& matrix, path& way) const {
        if (hit_mode == 0) return false;
        if (clip && !in(clip, p)) return false;
        if (!in(hits(), p)) return hit_mode == 2 || in_shape(clip_geometry, p);
        if (in_shape(front, p)) return true;
        if (search_children(origin, matrix, way)) return true;
        return hit_mode == 2 || in_shape(clip_geometry, p) || in_shape(back, p);
    }
    bool search_children(D2D_POINT_2F origin, const D2D_MATRIX_3X2_F& matrix, path& way) const {
        for (auto child = children.rbegin(); child != children.rend(); ++child) {
            if (static_cast<const hit_model*>(*child)->search(origin, matrix, way)) return true;
        }
        return false;
    }
};

}  // namespace d2d::scene::fakes
