#pragma once

#include "portable/IHwndWidget.h"
#include "portable/widget_factories.h"

namespace ui::mossHarbour {

/// The kinds of control that have a native form. Filled when the library is loaded.
extern const widget_factories<IHwndWidget> native_widget_factories;

/// Hands each kind with what makes its form to `add`.
void register_native_widgets(
    const std::function<void(const std::type_info& facade_type, com::ptr<IHwndWidget> (*make)())>& add);

}  // namespace ui::mossHarbour
