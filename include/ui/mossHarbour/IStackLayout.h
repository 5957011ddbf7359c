#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/ILayout.h"
#include "ui/mossHarbour/orientation.h"
#include "ui/mossHarbour/stack_item_details.h"

namespace ui::mossHarbour {

/// Elements one after the other. They get at least their minimum, more by their preferred sizes, and at most
/// their maximum; the larger margin of two neighbours stands between them. A stack without items cannot be
/// measured: that throws `std::logic_error` "empty layouts not supported!".
struct IStackLayout : ILayout {
    /// Appends an element, which is kept. In a layout that is shown it takes effect when it is materialized
    /// again. Throws `std::logic_error` for null.
    virtual void add_item(const stack_item_details& details, com::ptr<IElement> element) = 0;
};

/// A stack without items.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IStackLayout> create_stack_layout(orientation direction);

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IStackLayout> : com::extends<ui::mossHarbour::ILayout> {
    static constexpr GUID id = com::guid("2C83A66D-FB9C-4CE5-B5A5-318BF0AB496F");
};
