#pragma once

#include "com/ptr.h"
#include "ui/mossHarbour/ILayout.h"

#include <servprov.h>

namespace ui::mossHarbour {

/// A place where a described dialog is shown. Handlers are called with the panel that their control is in.
struct IPanel : IServiceProvider {
    /// Shows `layout`, null for nothing; kept. Returns what was shown before, which is materialized no
    /// longer. What a failed materialization throws passes on: the new layout stays, and nothing of it is
    /// shown.
    virtual com::ptr<ILayout> set_content(com::ptr<ILayout> layout) = 0;
};

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IPanel> : com::extends<IServiceProvider> {
    static constexpr GUID id = com::guid("34102B1E-96BC-4837-B07C-9B97A6B59492");
};
