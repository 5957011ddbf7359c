#include "kite.h"

namespace playground {
namespace {

// The mouse goes through it, to what is beneath.
com::ptr<d2d::scene::IFloatingNode> float_above(const sketch::node& knot, const sketch::node& picture) {
    picture->set_hit_transparent(true);
    return d2d::scene::IFloatingNode::float_node(knot.get(), picture.get());
}

}  // namespace

kite::kite(const sketch::node& knot, const sketch::node& picture, HWND window)
    : tied_to(knot), above(window), flown(float_above(knot, picture)) {}

void kite::follow() {
    D2D_POINT_2F in_scene{};
    d2d::scene::map_points(tied_to.get(), nullptr, &in_scene, 1);
    POINT corner{};
    ClientToScreen(above, &corner);
    flown->set_position(
        {static_cast<float>(corner.x) + in_scene.x, static_cast<float>(corner.y) + in_scene.y});
    flown->commit();
}

}  // namespace playground
