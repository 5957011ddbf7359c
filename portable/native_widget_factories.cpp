#include "portable/native_widget_factories.h"

#include "portable/check_box_control_impl.h"
#include "portable/edit_control_impl.h"
#include "portable/group_box_control_impl.h"
#include "portable/label_control_impl.h"
#include "portable/list_view_control_impl.h"
#include "portable/option_control_impl.h"
#include "portable/push_button_control_impl.h"
#include "portable/radio_button_control_impl.h"

namespace ui::mossHarbour {

void register_native_widgets(
    const std::function<void(const std::type_info& facade_type, com::ptr<IHwndWidget> (*make)())>& add) {
    add(typeid(label_control_impl::facade), label_control_impl::make_win32_widget);
    add(typeid(edit_control_impl::facade), edit_control_impl::make_win32_widget);
    add(typeid(option_control_impl::facade), option_control_impl::make_win32_widget);
    add(typeid(group_box_control_impl::facade), group_box_control_impl::make_win32_widget);
    add(typeid(check_box_control_impl::facade), check_box_control_impl::make_win32_widget);
    add(typeid(radio_button_control_impl::facade), radio_button_control_impl::make_win32_widget);
    add(typeid(push_button_control_impl::facade), push_button_control_impl::make_win32_widget);
    add(typeid(list_view_control_impl::facade), list_view_control_impl::make_win32_widget);
}

}  // namespace ui::mossHarbour
