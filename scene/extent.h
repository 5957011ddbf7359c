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

/// Brings `total`, the union of a number of parts, up to date with the change of one of them. False when the
/// other parts have to be asked: the part held an edge of the union and has drawn back from it.
[[nodiscard]] inline bool replace_part(extent& total, const part_change& change) noexcept {
    const D2D_RECT_F& t = total.rect;
    const D2D_RECT_F& b = change.before.rect;
    const D2D_RECT_F& a = change.after.rect;
    if (change.before.valid) {
        const bool grows = change.after.valid;
        // Written so that numbers that are not numbers fail.
        if (!(b.left > t.left || (grows && a.left <= b.left))) return false;
        if (!(b.top > t.top || (grows && a.top <= b.top))) return false;
        if (!(b.right < t.right || (grows && a.right >= b.right))) return false;
        if (!(b.bottom < t.bottom || (grows && a.bottom >= b.bottom))) return false;
    }
    if (change.after.valid) total.add(a);
    return true;
}

}  // namespace d2d::scene
