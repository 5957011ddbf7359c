#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/ILayout.h"
#include "ui/mossHarbour/grid_item_details.h"

namespace ui::mossHarbour {

/// Elements in rows and columns. Rows and columns have numbers; those without an element are not there.
struct IGridLayout : ILayout {
    /// Appends an element, which is kept. In a layout that is shown it takes effect when it is materialized
    /// again. Throws `std::logic_error` for null.
    virtual void add_item(const grid_item_details& details, com::ptr<IElement> element) = 0;
};

/// A grid without items.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IGridLayout> create_grid_layout();

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IGridLayout> : com::extends<ui::mossHarbour::ILayout> {
    static constexpr GUID id = com::guid("09C15E74-C2E2-459F-A4D2-1938A8263CD3");
};
