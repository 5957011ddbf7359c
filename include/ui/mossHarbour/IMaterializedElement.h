#pragma once

#include "com/interface_traits.h"
#include "ui/mossHarbour/element_metrics.h"
#include "ui/mossHarbour/measure_context.h"

namespace ui::mossHarbour {

/// What stands on the screen for an element.
struct IMaterializedElement : IUnknown {
    /// What it wants, with the texts and contents that it has now.
    virtual element_metrics measure(measure_context& context) = 0;
    /// Places it, in pixels of the parent window or scene node. A layout needs a `measure` ahead.
    virtual void arrange(int left, int top, int right, int bottom) = 0;
};

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IMaterializedElement> : com::extends<> {
    static constexpr GUID id = com::guid("363C1C04-FD58-432D-BEF9-A65CEDDF6F3C");
};
