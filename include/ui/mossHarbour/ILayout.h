#pragma once

#include "ui/mossHarbour/IElement.h"

namespace ui::mossHarbour {

/// Places elements in a rectangle. A layout is an element itself: layouts nest.
struct ILayout : IElement {};

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::ILayout> : com::extends<ui::mossHarbour::IElement> {
    static constexpr GUID id = com::guid("8029A38E-3F7B-4E35-B2A9-A3DB24ACBD78");
};
