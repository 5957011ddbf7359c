#include "scene/hit_path.h"

#include "scene/hit_index.h"
#include "scene/matrix.h"
#include "scene/rectangle.h"

#include <cassert>

namespace d2d::scene {
namespace {

constexpr float clip_tolerance = 0.25f;
constexpr float content_tolerance = 1.0f;

struct verdict {
    bool hit;
    bool enter_children;
};

bool list_contains(const command_list& commands, D2D_POINT_2F point) {
    for (const command& recorded : commands) {
        if (command_contains(recorded, point, content_tolerance)) return true;
    }
    return false;
}

/// Whether the clip geometry of a node contains a point; a platform that cannot tell says no.
bool clip_geometry_contains(const node& at, D2D_POINT_2F point) {
    BOOL contained = FALSE;
    if (at.clip_geometry->FillContainsPoint(point, nullptr, clip_tolerance, &contained) < 0) return false;
    return contained != FALSE;
}

verdict test(const node& at, D2D_POINT_2F point) {
    if (at.hit_mode == node::hit_transparent) return {false, false};
    if ((at.clip_flags & node::has_clip) && !contains(at.clip_rect, point)) return {false, false};
    const bool by_shape = at.clip_geometry && at.hit_mode == node::hit_by_content;
    const extent area = at.subtree_hit_extent();
    if (!area.valid || !contains(area.rect, point)) {
        if (at.hit_mode == node::hit_solid) return {true, false};
        return {by_shape && clip_geometry_contains(at, point), false};
    }
    if (list_contains(at.foreground, point)) return {true, false};
    if (at.hit_mode == node::hit_solid) return {true, true};
    if (at.clip_geometry && clip_geometry_contains(at, point)) return {true, true};
    return {list_contains(at.background, point), true};
}

}  // namespace

hit_path hit_path::from_root(node& root, D2D_POINT_2F point) {
    hit_path path;
    path.search(root, point, identity_matrix);
    return path;
}

hit_path hit_path::below(node& top, D2D_POINT_2F point) {
    hit_path path;
    path.search_children(top, point, identity_matrix);
    return path;
}

bool hit_path::search(node& at, D2D_POINT_2F origin, const D2D_MATRIX_3X2_F& outer) {
    assert(count < entries.size());
    const D2D_MATRIX_3X2_F matrix = at.clip_flags & node::has_transform ? multiply(outer, at.inverse) : outer;
    entry& own = entries[count++];
    own.at = &at;
    own.point = map_point(origin, matrix);
    const verdict result = test(at, own.point);
    own.hit = result.hit;
    if (result.enter_children && search_children(at, origin, matrix)) return true;
    if (own.hit) return true;
    --count;
    return false;
}

bool hit_path::search_children(node& at, D2D_POINT_2F origin, const D2D_MATRIX_3X2_F& matrix) {
    if (hit_index* const index = hit_index::for_test(at, origin, matrix)) {
        return index->visit_candidates(map_point(origin, matrix), [&](std::size_t number) {
            return search(*at.children[number], origin, matrix);
        });
    }
    for (std::size_t i = at.children.size(); i-- > 0;) {
        if (search(*at.children[i], origin, matrix)) return true;
    }
    return false;
}

}  // namespace d2d::scene
