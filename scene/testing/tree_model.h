#pragma once

#include "scene/testing/call_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include <d2d1.h>

namespace d2d::scene::fakes {

/// A tree of nodes as plain data. Whatever follows from something else is worked out anew, from the leaves
/// up, each time it is asked for. For comparison with the nodes, which keep it.
struct tree_model {
    using area = std::optional<D2D_RECT_F>;

    tree_model* parent = nullptr;
    std::vector<tree_model*> children;
    area content;
    bool content_animated = false;
    D2D_MATRIX_3X2_F transform{{{1, 0, 0, 1, 0, 0}}};
    D2D_MATRIX_3X2_F inverse{{{1, 0, 0, 1, 0, 0}}};
    bool moves = false;  // has a transform animation
    int hit_mode = 1;
    area clip_geometry;
    area own_hit;  // follows from the others, but not from them alone

    static float least(float a, float b) { return std::isnan(a) ? b : std::isnan(b) ? a : std::min(a, b); }
    static float most(float a, float b) { return std::isnan(a) ? b : std::isnan(b) ? a : std::max(a, b); }

    static area unite(const area& a, const area& b) {
        if (!a) return b;
        if (!b) return a;
        return D2D_RECT_F{least(a->left, b->left), least(a->top, b->top), most(a->right, b->right),
                          most(a->bottom, b->bottom)};
    }

    static D2D_RECT_F map(const D2D_RECT_F& r, const D2D_MATRIX_3X2_F& m) {
        if (m._11 == 1 && m._12 == 0 && m._21 == 0 && m._22 == 1)
            return {r.left + m.dx, r.top + m.dy, r.right + m.dx, r.bottom + m.dy};
        constexpr float none = std::numeric_limits<float>::quiet_NaN();
        D2D_RECT_F result{none, none, none, none};
        for (const float x : {r.left, r.right}) {
            for (const float y : {r.top, r.bottom}) {
                const float to_x = x * m._11 + y * m._21 + m.dx;
                const float to_y = x * m._12 + y * m._22 + m.dy;
                result = {least(result.left, to_x), least(result.top, to_y), most(result.right, to_x),
                          most(result.bottom, to_y)};
            }
        }
        return result;
    }

    static area map(const area& r, const D2D_MATRIX_3X2_F& m) { return r ? area(map(*r, m)) : area(); }

    [[nodiscard]] area bounds() const {
        area result = content;
        for (const tree_model* child : children)
            result = unite(result, map(child->bounds(), child->transform));
        return result;
    }

    [[nodiscard]] area hits() const {
        if (hit_mode == 0) return {};
        constexpr float far_out = std::numeric_limits<float>::max();
        if (hit_mode == 2) return D2D_RECT_F{-far_out, -far_out, far_out, far_out};
        area result = own_hit;
        for (const tree_model* child : children) result = unite(result, map(child->hits(), child->transform));
        return result;
    }

    /// To be called where the mode, the clip geometry or the recording changes.
    void update_own_hit() {
        if (hit_mode == 0) own_hit.reset();
        if (hit_mode == 2) own_hit = hits();
        if (hit_mode != 1) return;
        if (clip_geometry) {
            own_hit = clip_geometry;
        } else if (content) {
            own_hit = content;
        }
    }

    [[nodiscard]] bool paints_animated() const {
        return content_animated || std::any_of(children.begin(), children.end(),
                                               [](const auto* child) { return child->paints_animated(); });
    }
    [[nodiscard]] bool has_moving_nodes() const { return moves || moving_children() > 0; }
    [[nodiscard]] int moving_children() const {
        return static_cast<int>(std::count_if(children.begin(), children.end(),
                                              [](const auto* child) { return child->has_moving_nodes(); }));
    }

    [[nodiscard]] unsigned flags() const {
        const bool below = std::any_of(children.begin(), children.end(),
                                       [](const auto* child) { return child->paints_animated(); });
        return (content ? 1u : 0u) | (bounds() ? 2u : 0u) | (own_hit ? 4u : 0u) | (hits() ? 8u : 0u) |
               (content_animated ? 16u : 0u) | (below ? 32u : 0u);
    }

    [[nodiscard]] const tree_model& top() const { return parent ? parent->top() : *this; }
    [[nodiscard]] bool is_above(const tree_model& other) const {
        return &other == this || (other.parent && is_above(*other.parent));
    }

    /// The area that a repaint of a rectangle of this node is asked for.
    [[nodiscard]] D2D_RECT_F in_view(const area& rect) const {
        D2D_MATRIX_3X2_F to_root{{{1, 0, 0, 1, 0, 0}}};
        for (const tree_model* at = this; at; at = at->parent) {
            const D2D_MATRIX_3X2_F& t = at->transform;
            const bool moved =
                !(t._11 == 1 && t._12 == 0 && t._21 == 0 && t._22 == 1 && t.dx == 0 && t.dy == 0);
            if (moved) to_root = product(to_root, t);
        }
        return map(rect.value_or(D2D_RECT_F{}), to_root);
    }

    static D2D_MATRIX_3X2_F product(const D2D_MATRIX_3X2_F& a, const D2D_MATRIX_3X2_F& b) {
        const auto x = [&](float u, float v, float w) { return u * b._11 + v * b._21 + w; };
        const auto y = [&](float u, float v, float w) { return u * b._12 + v * b._22 + w; };
        D2D_MATRIX_3X2_F r;
        r._11 = x(a._11, a._12, 0);
        r._12 = y(a._11, a._12, 0);
        r._21 = x(a._21, a._22, 0);
        r._22 = y(a._21, a._22, 0);
        r.dx = x(a.dx, a.dy, b.dx);
        r.dy = y(a.dx, a.dy, b.dy);
        return r;
    }

    static std::string text(const area& rect) { return rect ? call_text(*rect) : "none"; }
};

}  // namespace d2d::scene::fakes
