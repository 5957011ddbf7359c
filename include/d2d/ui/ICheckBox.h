#pragma once

#include "com/api.h"
#include "d2d/ui/IButton.h"

namespace d2d::ui {

/// A button with a mark on its left that each click sets or removes.
struct ICheckBox : IButton {};

/// A check box in `rect`; the mark is a square of its height.
[[nodiscard]] MOSSHARBOUR_API com::ptr<ICheckBox> create_check_box(ILabel* label, D2D_RECT_F rect,
                                                                   IUnknown* style);

}  // namespace d2d::ui

template <>
struct com::interface_traits<d2d::ui::ICheckBox> : com::extends<d2d::ui::IButton> {
    static constexpr GUID id = com::guid("A4390193-0468-4F01-8F5F-2E8C9D927932");
};
