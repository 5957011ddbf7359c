#pragma once

#include "com/api.h"
#include "com/ptr.h"
#include "ui/mossHarbour/ILayout.h"
#include "ui/mossHarbour/IWidget.h"

namespace ui::mossHarbour {

/// A frame with a caption around a layout.
struct IGroupBoxControl : IWidget {
    /// The caption. On the scene it does not show.
    virtual void set_text(const wchar_t* text) = 0;
    /// The least distances between the frame and the content: lengths in pixels or by `font_percent`. Part of
    /// the description.
    virtual void set_padding(int left, int top, int right, int bottom) = 0;
    /// Keeps the layout, and returns the previous one. Part of the description.
    virtual com::ptr<ILayout> set_content(com::ptr<ILayout> content) = 0;
};

/// A group box that is not shown yet.
[[nodiscard]] MOSSHARBOUR_API com::ptr<IGroupBoxControl> create_group_box_control();

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IGroupBoxControl> : com::extends<ui::mossHarbour::IWidget> {
    static constexpr GUID id = com::guid("32CC5E7F-A648-4C82-BB73-05F21383F76F");
};
