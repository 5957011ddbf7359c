#include "portable/native_widget_factories.h"

#include "portable/label_control_impl.h"
#include "portable/push_button_control_impl.h"

namespace ui::mossHarbour {

void register_native_widgets(
    const std::function<void(const std::type_info& facade_type, com::ptr<IHwndWidget> (*make)())>& add) {
    add(typeid(label_control_impl::facade), label_control_impl::make_win32_widget);
    add(typeid(push_button_control_impl::facade), push_button_control_impl::make_win32_widget);
}

}  // namespace ui::mossHarbour
