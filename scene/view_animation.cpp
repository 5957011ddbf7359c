// The step of a view's animations.

#include "com/object.h"
#include "scene/extent.h"
#include "scene/node.h"
#include "scene/tree_walk.h"
#include "scene/view.h"

#include <array>

namespace d2d::scene {
namespace {

/// One tick over a tree: moves what has a transform animation, and gathers the area of what paints anew.
class animation_step {
public:
    explicit animation_step(double now) noexcept : time(now) {}

    extent run(node& root) {
        walk_tree<com::ptr<node>>(
            root, [this](node& at) { return enter(at); }, [this](node&) { leave(); });
        return dirty;
    }

private:
    bool enter(node& at) {
        saved[depth++] = matrix;
        if (const auto animation = at.transform_animation) at.set_transform(animation->get_value(time));
        if (at.clip_flags & node::has_transform) matrix = multiply(at.transform, matrix);
        if (at.content_flags & node::content_animated) dirty.add(map_rect(at.content_bounds, matrix));
        return (at.content_flags & node::children_animated) || at.animated_nodes >= 1;
    }

    // Whatever has become of the node's transform: handlers may have changed it.
    void leave() noexcept { matrix = saved[--depth]; }

    double time;
    extent dirty;
    D2D_MATRIX_3X2_F matrix = identity_matrix;
    std::array<D2D_MATRIX_3X2_F, maximal_depth> saved;
    std::size_t depth = 0;
};

}  // namespace

void view::tick(float time, float) {
    if (!root) return;
    const com::ptr<node> top = root;
    const extent dirty = animation_step(static_cast<double>(time)).run(*top);
    if (dirty.valid && site) site->invalidate_rect(dirty.rect);
}

}  // namespace d2d::scene
