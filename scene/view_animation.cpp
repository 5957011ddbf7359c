// The step of a view's animations.

#include "com/object.h"
#include "scene/extent.h"
#include "scene/node.h"
#include "scene/tree_walk.h"
#include "scene/view.h"

namespace d2d::scene {
namespace {

/// One tick over a tree: moves what has a transform animation, and gathers the area of what paints anew.
class animation_step {
public:
    explicit animation_step(double now) noexcept : time(now) {}

    extent run(node& root) {
        step(root, identity_matrix);
        return dirty;
    }

private:
    /// Whether there is anything to do in a subtree.
    [[nodiscard]] static bool is_animated(const node& top) noexcept {
        return top.counts_as_animated() || (top.content_flags & node::animated_bits);
    }

    /// `outer` maps the space above the node to the root's. Handlers run in here, which may change the tree.
    void step(node& at, const D2D_MATRIX_3X2_F& outer) {
        if (const auto animation = at.transform_animation) at.set_transform(animation->get_value(time));
        const D2D_MATRIX_3X2_F matrix =
            at.clip_flags & node::has_transform ? multiply(at.transform, outer) : outer;
        if (at.content_flags & node::content_animated) dirty.add(map_rect(at.content_bounds, matrix));
        if (!(at.content_flags & node::children_animated) && at.animated_nodes < 1) return;
        for (std::size_t next = 0; next < at.children.size();) {
            if (!is_animated(*at.children[next++])) continue;
            const com::ptr<node> child = at.children[next - 1];
            step(*child, matrix);
            next = place_behind(at, child.get(), next);
        }
    }

    double time;
    extent dirty;
};

}  // namespace

void view::tick(float time, float) {
    if (!root) return;
    const com::ptr<view> keep = this;
    const com::ptr<node> top = root;
    const extent dirty = animation_step(static_cast<double>(time)).run(*top);
    if (dirty.valid && site) site->invalidate_rect(dirty.rect);
}

}  // namespace d2d::scene
