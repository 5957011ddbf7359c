#pragma once

#include "d2d/scene/IBrush.h"
#include "d2d/ui/IControl.h"

namespace d2d::ui {

/// What buttons, lists and tables show. A label's rectangle is centred on its own origin, until it is
/// arranged: whoever holds it moves its node to the point where the centre belongs, and chooses its brush.
struct ILabel : IControl {
    /// Null stands for the style's. The label is drawn again unless it has that brush already.
    virtual void set_brush(com::ptr<scene::IBrush> brush) = 0;
};

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ILabel> : com::extends<d2d::ui::IControl> {
    static constexpr GUID id = com::guid("5A7E444B-65FC-4255-8385-D992D1061445");
};
