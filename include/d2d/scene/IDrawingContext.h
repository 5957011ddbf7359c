#pragma once

#include "com/interface_traits.h"
#include "d2d/scene/IBitmap.h"
#include "d2d/scene/IBrush.h"
#include "d2d/scene/IVisual.h"

#include <d2d1.h>
#include <dwrite.h>

namespace d2d::scene {

/// An open recording of a node, from `INode::draw`. Commands are kept, with the resources that they use, and
/// replayed at every paint; nothing is drawn at the time of the call. Coordinates are in the node's space, in
/// pixels. An operation that throws adds nothing and leaves the recording as it was.
struct IDrawingContext : IUnknown {
    /// From here on commands are painted over the node's children.
    virtual void foreground() = 0;
    /// From here on commands are painted beneath the node's children: the state at the start.
    virtual void background() = 0;
    /// Throws `com::error` when the platform cannot tell the bounds, or `brush` is of another make.
    virtual void fill_geometry(ID2D1Geometry* geometry, IBrush* brush) = 0;
    /// Strokes the outline; `style` may be null. Also throws `std::logic_error` when the stroke has no
    /// bounds.
    virtual void draw_geometry(ID2D1Geometry* geometry, IBrush* brush, float width,
                               ID2D1StrokeStyle* style) = 0;
    /// Text with its layout box at (x, y). The bounds are those of the box, not of the ink.
    virtual void draw_text_layout(float x, float y, IDWriteTextLayout* layout, IBrush* brush,
                                  D2D1_DRAW_TEXT_OPTIONS options) = 0;
    /// A bitmap at its natural size with its upper left corner at (x, y).
    virtual void draw_bitmap(float x, float y, IBitmap* bitmap) = 0;
    /// Something that paints itself.
    virtual void draw_visual(IVisual* visual) = 0;
    /// Replaces the node's recording by this one. The context is empty then and can be used again.
    virtual void commit() = 0;
};

}  // namespace d2d::scene

template <>
struct com::interface_traits<d2d::scene::IDrawingContext> : com::extends<> {
    static constexpr GUID id = com::guid("D4CA2414-560A-4AD0-AF93-DA99C5370EF3");
};
