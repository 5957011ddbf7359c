#include "portable/scene_widget_factories.h"

#include "portable/check_box_control_impl.h"
#include "portable/edit_control_impl.h"
#include "portable/group_box_control_impl.h"
#include "portable/label_control_impl.h"
#include "portable/push_button_control_impl.h"
#include "portable/radio_button_control_impl.h"

namespace ui::mossHarbour {

void register_scene_widgets(
    const std::function<void(const std::type_info& facade_type, com::ptr<ID2dWidget> (*make)())>& add) {
    add(typeid(label_control_impl::facade), label_control_impl::make_d2d_widget);
    add(typeid(edit_control_impl::facade), edit_control_impl::make_d2d_widget);
    add(typeid(check_box_control_impl::facade), check_box_control_impl::make_d2d_widget);
    add(typeid(radio_button_control_impl::facade), radio_button_control_impl::make_d2d_widget);
    add(typeid(push_button_control_impl::facade), push_button_control_impl::make_d2d_widget);
    add(typeid(group_box_control_impl::facade), group_box_control_impl::make_d2d_widget);
}

}  // namespace ui::mossHarbour
