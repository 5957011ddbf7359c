#pragma once

#include "portable/ID2dWidget.h"
#include "portable/widget_factories.h"

namespace ui::mossHarbour {

/// The kinds of control that the scene has a form of. Filled when the library is loaded.
extern const widget_factories<ID2dWidget> scene_widget_factories;

/// Hands each kind with what makes its form to `add`.
void register_scene_widgets(
    const std::function<void(const std::type_info& facade_type, com::ptr<ID2dWidget> (*make)())>& add);

}  // namespace ui::mossHarbour
