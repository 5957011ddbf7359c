#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/IWidget.h"

namespace ui::mossHarbour {

/// A line of text.
struct ILabelControl : IWidget {
    virtual void set_text(const wchar_t* text) = 0;
};

/// A label that is not shown yet.
[[nodiscard]] MOSSHARBOUR_API com::ptr<ILabelControl> create_label_control();

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::ILabelControl> : com::extends<ui::mossHarbour::IWidget> {
    static constexpr GUID id = com::guid("E1D65AFF-0826-44C4-9A8B-211769DE3E32");
};
