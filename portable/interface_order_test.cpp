// The places of the operations of described forms: programs that were built with them have them compiled in.

#include "d2d/scene/IFloatingUiService.h"
#include "portable/IHwndCellEditor.h"
#include "portable/check_box_control_impl.h"
#include "portable/edit_control_impl.h"
#include "portable/group_box_control_impl.h"
#include "portable/label_control_impl.h"
#include "portable/list_view_control_impl.h"
#include "portable/option_control_impl.h"
#include "portable/push_button_control_impl.h"
#include "portable/radio_button_control_impl.h"
#include "support/operation_order.h"
#include "ui/mossHarbour/ID2DScenePanel.h"
#include "ui/mossHarbour/IFileSelectionService.h"
#include "ui/mossHarbour/IGridLayout.h"
#include "ui/mossHarbour/IHwndPanel.h"
#include "ui/mossHarbour/IModalService.h"
#include "ui/mossHarbour/IStackLayout.h"
#include "ui/mossHarbour/measure_context.h"

#include <cstddef>

#include <gtest/gtest.h>

namespace ui::mossHarbour {
namespace {

TEST(form_interfaces, keep_the_order_of_a_window_s_sizes) {
    const IHwndPanel::window_sizes sizes{{1, 2}, {3, 4}, {5, 6}};
    EXPECT_EQ(sizes.preferred.cx, 1);
    EXPECT_EQ(sizes.maximum.cx, 3);
    EXPECT_EQ(sizes.minimum.cx, 5);
}

#ifndef _MSC_VER  // see the header

using test_support::behind_unknown;
using test_support::expect_in_order;
constexpr std::ptrdiff_t behind_service_provider = 4;
constexpr std::ptrdiff_t behind_materialized = 5;

// -- elements and panels
// --------------------------------------------------------------------------------------

TEST(form_interfaces, keep_the_order_of_the_operations_of_elements) {
    using element = IMaterializableElement;
    expect_in_order(behind_unknown, &element::materialize, &element::dematerialize);
    expect_in_order(behind_unknown, &IMaterializedElement::measure, &IMaterializedElement::arrange);
    expect_in_order(behind_unknown, &ID2dWidget::materialize, &ID2dWidget::dematerialize);
    expect_in_order(behind_unknown, &IHwndWidget::materialize, &IHwndWidget::dematerialize,
                    &IHwndWidget::on_command, &IHwndWidget::on_notify);
    expect_in_order(behind_unknown, &IStackLayout::add_item);
    expect_in_order(behind_unknown, &IGridLayout::add_item);
}

TEST(form_interfaces, keep_the_order_of_the_operations_of_contexts) {
    expect_in_order(0, &measure_context::measure_text);
    expect_in_order(0, &materialization_context::materialize, &materialization_context::dematerialize);
    expect_in_order(2, &d2d_materialization_context::get_panel, &d2d_materialization_context::get_scene_node);
    using native = hwnd_materialization_context;
    expect_in_order(2, &native::get_parent_window, &native::get_panel);
}

TEST(form_interfaces, keep_the_order_of_the_operations_of_panels) {
    using basic = IBasicHwndPanel;
    expect_in_order(behind_service_provider, &IPanel::set_content, &basic::get_window_handle, &basic::measure,
                    &basic::create_window, &basic::destroy_window, &basic::translate_message,
                    &IHwndPanel::set_padding, &IHwndPanel::get_window_sizes, &IHwndPanel::set_on_close);
    using scene = ID2DScenePanel;
    expect_in_order(behind_service_provider, &IPanel::set_content, &scene::get_node, &scene::measure,
                    &scene::get_measured, &scene::arrange);
}

TEST(form_interfaces, keep_the_order_of_the_operations_of_services) {
    expect_in_order(behind_unknown, &IModalService::showPopup, &IModalService::showDialog);
    using files = IFileSelectionService;
    expect_in_order(behind_unknown, &files::selectInputFile, &files::selectOutputFile);
    expect_in_order(behind_unknown, &d2d::scene::IFloatingUiService::show_popup);
}

// -- controls: what clients, forms and facades call
// -----------------------------------------------------------

TEST(form_interfaces, keep_the_order_of_the_operations_of_fields) {
    expect_in_order(behind_unknown, &ILabelControl::set_text);
    expect_in_order(behind_materialized, &label_control_impl::materialization::set_text);
    expect_in_order(behind_unknown, &IEditControl::set_text, &IEditControl::get_text,
                    &IEditControl::set_on_changed);
    expect_in_order(behind_unknown, &edit_control_impl::facade::fire_changed);
    using edit = edit_control_impl::materialization;
    expect_in_order(behind_materialized, &edit::set_text, &edit::get_text);
    expect_in_order(behind_unknown, &IOptionControl::add_option, &IOptionControl::select_option,
                    &IOptionControl::get_selection, &IOptionControl::set_on_selection_changed);
    expect_in_order(behind_unknown, &option_control_impl::facade::fire_changed);
    using option = option_control_impl::materialization;
    expect_in_order(behind_materialized, &option::add_option, &option::select_option, &option::get_selection);
}

TEST(form_interfaces, keep_the_order_of_the_operations_of_buttons) {
    expect_in_order(behind_unknown, &ICheckBoxControl::set_text, &ICheckBoxControl::is_checked,
                    &ICheckBoxControl::set_checked, &ICheckBoxControl::set_on_toggled);
    expect_in_order(behind_unknown, &check_box_control_impl::facade::fire_toggled);
    using box = check_box_control_impl::materialization;
    expect_in_order(behind_materialized, &box::set_text, &box::is_checked, &box::set_checked);
    expect_in_order(behind_unknown, &IPushButtonControl::set_text, &IPushButtonControl::set_enabled,
                    &IPushButtonControl::set_on_click);
    expect_in_order(behind_unknown, &push_button_control_impl::facade::fire_click);
    using push = push_button_control_impl::materialization;
    expect_in_order(behind_materialized, &push::set_text, &push::set_enabled);
    expect_in_order(behind_unknown, &IRadioButtonControl::set_text, &IRadioButtonControl::set_checked,
                    &IRadioButtonControl::is_checked, &IRadioButtonControl::set_on_click);
    using asked = radio_button_control_impl::facade;
    expect_in_order(behind_unknown, &asked::is_group_start, &asked::fire_click);
    using radio = radio_button_control_impl::materialization;
    expect_in_order(behind_materialized, &radio::set_text, &radio::set_checked, &radio::is_checked);
}

TEST(form_interfaces, keep_the_order_of_the_operations_of_group_boxes) {
    expect_in_order(behind_unknown, &IGroupBoxControl::set_text, &IGroupBoxControl::set_padding,
                    &IGroupBoxControl::set_content);
    using asked = group_box_control_impl::facade;
    expect_in_order(behind_unknown, &asked::get_content, &asked::get_padding);
    expect_in_order(behind_materialized, &group_box_control_impl::materialization::set_text);
}

TEST(form_interfaces, keep_the_order_of_the_operations_of_lists) {
    using list = IListViewControl;
    expect_in_order(behind_unknown, &list::add_column, &list::remove_column, &list::set_column_text,
                    &list::get_column_order, &list::set_column_order, &list::get_column_widths,
                    &list::add_row, &list::remove_row, &list::set_cell_text, &list::set_row_data,
                    &list::get_row_data, &list::any_selected_row, &list::sort_rows, &list::set_on_row_click,
                    &list::set_cell_editor_source, &list::set_on_edit_finished, &list::set_on_row_right_click,
                    &list::set_on_column_click, &list::set_on_row_double_click, &list::create_text_editor);
    using told = list_view_control_impl::facade;
    expect_in_order(behind_unknown, &told::fire_row_click, &told::get_cell_editor, &told::fire_edit_finished,
                    &told::fire_row_right_click, &told::fire_column_click, &told::fire_row_double_click);
    using live = list_view_control_impl::materialization;
    expect_in_order(behind_materialized, &live::add_column, &live::remove_column, &live::set_column_text,
                    &live::get_column_order, &live::set_column_order, &live::get_column_widths,
                    &live::add_row, &live::remove_row, &live::set_cell_text, &live::set_row_data,
                    &live::get_row_data, &live::any_selected_row, &live::sort_rows, &live::sort_by_column);
    using editor = list_view_control_impl::IHwndCellEditor;
    expect_in_order(behind_unknown, &editor::begin_edit, &editor::end_edit, &editor::commit_edit,
                    &editor::has_focus);
}

#endif

}  // namespace
}  // namespace ui::mossHarbour
