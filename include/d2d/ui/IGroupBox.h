#pragma once

#include "com/api.h"
#include "d2d/ui/ILabel.h"

namespace d2d::ui {

/// A frame around a node. `QueryInterface` does not know it as `IControl`.
struct IGroupBox : IControl {
    /// Shows `content`, null for nothing, with its origin in the frame's upper left corner at the next
    /// `arrange`. Keeps it, and returns the previous one. Throws `std::logic_error` for a node that has a
    /// parent; that one counts as the content all the same: follow with another, or null.
    virtual com::ptr<scene::INode> set_content(com::ptr<scene::INode> content) = 0;
};

/// A group box in `rect`; with an empty one it is drawn when it is arranged. The label is kept, and shown by
/// nothing yet.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IGroupBox> create_group_box(ILabel* label, D2D_RECT_F rect,
                                                                   IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::IGroupBox> : com::extends<d2d::scene::layout::IElement> {
    static constexpr GUID id = com::guid("AB556156-8E45-4BA5-BEF0-68CC9052A620");
};
