#pragma once

#include "com/interface_traits.h"

namespace ui::mossHarbour {

/// Anything that can be put into a layout.
struct IElement : IUnknown {};

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IElement> : com::extends<> {
    static constexpr GUID id = com::guid("2A4B9DC6-8AE0-41AC-BFC7-6111F90D9974");
};
