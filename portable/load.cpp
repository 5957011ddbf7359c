// What is made once, in this order, while the library is loaded.

#include "portable/native_widget_factories.h"
#include "portable/panel_class.h"
#include "portable/scene_widget_factories.h"
#include "portable/toolkit_font.h"

namespace ui::mossHarbour {
namespace {

template <class Widget, class Register>
widget_factories<Widget> table_of(Register register_widgets) {
    widget_factories<Widget> table;
    register_widgets([&](const std::type_info& type, auto make) { table.add(type, make); });
    return table;
}

}  // namespace

const registered_panel_class panel_class;
const HFONT toolkit_font = make_toolkit_font();
const int font_height = line_height(toolkit_font);
const widget_factories<ID2dWidget> scene_widget_factories = table_of<ID2dWidget>(register_scene_widgets);
const widget_factories<IHwndWidget> native_widget_factories = table_of<IHwndWidget>(register_native_widgets);

}  // namespace ui::mossHarbour
