#pragma once

#include "common/node.h"
#include "common/shapes.h"
#include "d2d/ui/IControl.h"

namespace gallery {

/// A node around a control, so that the control's rectangle starts at (0, 0): scroll bars count presses on
/// their track from there.
class holder {
public:
    holder(const sketch::node& parent, const com::ptr<d2d::ui::IControl>& control) : held(control) {
        parent->add_child(node);
        node->add_child(held->get_node());
    }

    /// Puts the control into a rectangle of the parent's space.
    void place(D2D_RECT_F rect) {
        node->set_transform(sketch::moved(rect.left, rect.top));
        held->arrange({0, 0, rect.right - rect.left, rect.bottom - rect.top});
    }

private:
    com::ptr<d2d::ui::IControl> held;
    sketch::node node = d2d::scene::create_node();
};

}  // namespace gallery
