#pragma once

#include "d2d/scene/INode.h"
#include "d2d/scene/layout/IElement.h"

#include <dcommon.h>

namespace d2d {

/// One of the four margins of a scroll area. A part's node is in the area's tree while the part has a size.
struct scroll_area_margin {
    scroll_area_margin() { scrolled_clip_node->add_child(scrolled_node); }

    float fixed_size = 0;
    float scrolled_size = 0;
    com::ptr<scene::layout::IElement> element;  // in the fixed part; may be null
    D2D_RECT_F element_inset{};                 // its origin, and what is taken off the part's size
    const com::ptr<scene::INode> fixed_node = scene::create_node();
    const com::ptr<scene::INode> scrolled_clip_node = scene::create_node();
    const com::ptr<scene::INode> scrolled_node = scene::create_node();
};

}  // namespace d2d
