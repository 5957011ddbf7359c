#pragma once

#include "com/interface_traits.h"
#include "d2d/scene/layout/metrics.h"

namespace d2d::scene::layout {

/// Something that can be placed: it says what sizes it can take, and accepts a rectangle. Every control of
/// the scene is one.
struct IElement : IUnknown {
    /// The sizes that the element can take. May be called at any time; moves nothing.
    virtual metrics measure() = 0;
    /// Places the element. The rectangle is in the space of the node that the element's node is a child of,
    /// in pixels; it may be smaller than the minimum.
    virtual void arrange(D2D_RECT_F rect) = 0;
};

}  // namespace d2d::scene::layout

template <>
struct com::interface_traits<d2d::scene::layout::IElement> : com::extends<> {
    static constexpr GUID id = com::guid("E32D91BF-E7DF-406C-83EF-4250CD0CFBF1");
};
