#pragma once

#include "ui/mossHarbour/IElement.h"

namespace ui::mossHarbour {

/// A control of a dialog's description. It stands for a control on the screen while it is materialized, by
/// the panel that it is shown in; what it is told for good (handlers, padding, content) it keeps from one
/// time to the next, and what belongs to the control on the screen (text, check marks) goes with it.
///
/// Operations on what shows throw `std::logic_error` "An operation was attempted on a control that has not
/// been materialized" without a control on the screen. Those on the description throw `std::logic_error` "An
/// operation was attempted on a control that has already been materialized" while there is one. Handlers can
/// be set at any time; they are called with the panel that the control is in.
struct IWidget : IElement {};

}  // namespace ui::mossHarbour

template <>
struct com::interface_traits<ui::mossHarbour::IWidget> : com::extends<ui::mossHarbour::IElement> {
    static constexpr GUID id = com::guid("00E91240-40CA-401E-8ED2-1D3E38C721FF");
};
