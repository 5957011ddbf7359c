#pragma once

#include "scene/rectangle.h"

namespace d2d::scene {

/// A rectangle that may be absent: what a node or a part of it covers. All zeros while absent. An empty
/// rectangle that is there is not treated specially.
struct extent {
    bool valid = false;
    D2D_RECT_F rect{};

    void add(const D2D_RECT_F& part) noexcept {
        rect = valid ? unite(rect, part) : part;
        valid = true;
    }

    [[nodiscard]] extent mapped(const D2D_MATRIX_3X2_F& matrix) const noexcept {
        return valid ? extent{true, map_rect(rect, matrix)} : extent{};
    }
};

[[nodiscard]] inline bool differs(const extent& a, const extent& b) noexcept {
    return a.valid != b.valid || (a.valid && !same_edges(a.rect, b.rect));
}

/// How one of the parts that make a union has changed.
struct part_change {
    extent before;
    extent after;

    [[nodiscard]] bool none() const noexcept { return !differs(before, after); }
};

/// Whether the change of a part leaves `total`, the union of a number of parts, as it is, seen from the two
/// rectangles alone: the part stays away from the edges, and inside them. Most changes do.
[[nodiscard]] inline bool leaves_alone(const D2D_RECT_F& total, const part_change& change) noexcept {
    const D2D_RECT_F& b = change.before.rect;
    const D2D_RECT_F& a = change.after.rect;
    if (change.before.valid &&
        !(b.left > total.left && b.top > total.top && b.right < total.right && b.bottom < total.bottom)) {
        return false;
    }
    return !change.after.valid ||
           (a.left >= total.left && a.top >= total.top && a.right <= total.right && a.bottom <= total.bottom);
}

/// Brings `total`, the union of a number of parts, up to date with the change of one of them. False when the
/// other parts have to be asked: the part held an edge of the union and has drawn back from it. `anchor` is
/// another part, or the changed one as it now is: an edge that it reaches stays where it is.
[[nodiscard]] inline bool replace_part(extent& total, const part_change& change,
                                       const extent& anchor = {}) noexcept {
    const D2D_RECT_F& t = total.rect;
    const D2D_RECT_F& b = change.before.rect;
    const D2D_RECT_F& a = change.after.rect;
    const D2D_RECT_F& k = anchor.rect;
    if (change.before.valid) {
        const bool grows = change.after.valid;
        const bool held = anchor.valid;
        // Written so that numbers that are not numbers fail.
        if (!(b.left > t.left || (grows && a.left <= b.left) || (held && k.left <= t.left))) return false;
        if (!(b.top > t.top || (grows && a.top <= b.top) || (held && k.top <= t.top))) return false;
        if (!(b.right < t.right || (grows && a.right >= b.right) || (held && k.right >= t.right)))
            return false;
        if (!(b.bottom < t.bottom || (grows && a.bottom >= b.bottom) || (held && k.bottom >= t.bottom))) {
            return false;
        }
    }
    if (change.after.valid) total.add(a);
    return true;
}

}  // namespace d2d::scene
