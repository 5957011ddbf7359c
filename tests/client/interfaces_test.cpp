// What clients have compiled in of the interfaces of hosts and controls: identifiers, and the places of the
// operations.

#include "com/guid.h"
#include "com/interface_traits.h"
#include "mossHarbour.ui.h"
#include "support/operation_order.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <string_view>

namespace {

using com::guid;
using com::guid_of;
using com::same_guid;
namespace scene = d2d::scene;
namespace controls = d2d::ui;

struct identifier {
    const char* name;
    GUID known;
    GUID declared;
};

void expect_known(std::initializer_list<identifier> identifiers) {
    for (const auto& [name, known, declared] : identifiers) EXPECT_TRUE(same_guid(known, declared)) << name;
}

TEST(identifiers, of_services_are_these) {
    expect_known({
        {"IDeferredExecutionService", guid("E91C1E59-EEE3-48A6-9FBE-C389CB4F55E0"),
         guid_of<scene::IDeferredExecutionService>()},
        {"IFloatingNode::IService", guid("D4A069E1-625A-4020-B6F8-9EE8D6B4246C"),
         guid_of<scene::IFloatingNode::IService>()},
    });
}

TEST(identifiers, of_controls_are_these) {
    expect_known({
        {"layout::IElement", guid("E32D91BF-E7DF-406C-83EF-4250CD0CFBF1"),
         guid_of<scene::layout::IElement>()},
        {"IControl", guid("E5FEA52E-ACB7-41E0-AE18-24793533E500"), guid_of<controls::IControl>()},
        {"IButton", guid("D992A518-7B39-49A8-B382-72200C70ED26"), guid_of<controls::IButton>()},
        {"IPushButton", guid("39882B75-3BD2-42EE-9764-976B28205BA1"), guid_of<controls::IPushButton>()},
        {"ICheckBox", guid("A4390193-0468-4F01-8F5F-2E8C9D927932"), guid_of<controls::ICheckBox>()},
        {"ILabel", guid("5A7E444B-65FC-4255-8385-D992D1061445"), guid_of<controls::ILabel>()},
        {"ITextLabel", guid("5176D965-3F85-4602-BA40-4C38FF9F6148"), guid_of<controls::ITextLabel>()},
        {"IIconLabel", guid("4FF4C336-6A0E-4690-BA24-4D2DE6E5DA27"), guid_of<controls::IIconLabel>()},
        {"IGroupBox", guid("AB556156-8E45-4BA5-BEF0-68CC9052A620"), guid_of<controls::IGroupBox>()},
        {"ICommandStrip", guid("E190E641-3177-465C-A775-35D6284FD501"), guid_of<controls::ICommandStrip>()},
        {"IScrollBar", guid("56BB7066-D2EF-49A8-B3BF-0DE3973D3867"), guid_of<controls::IScrollBar>()},
        {"IScrollArea", guid("B62E9D2B-DEA7-4E59-A76D-B5C5C342BCC0"), guid_of<controls::IScrollArea>()},
        {"ILineEdit", guid("431FD5DB-129D-44BF-AF08-69AF95572CF7"), guid_of<controls::ILineEdit>()},
    });
}

TEST(identifiers, of_cell_editors_is_this) {
    expect_known({{"IListViewControl::ICellEditor", guid("B1331356-1499-4BE9-BC22-732C01FE61B3"),
                   guid_of<ui::mossHarbour::IListViewControl::ICellEditor>()}});
}

#ifndef _MSC_VER  // see the header

using test_support::behind_unknown;
using test_support::expect_in_order;
constexpr std::ptrdiff_t behind_style = 4;
constexpr std::ptrdiff_t behind_control = 7;
constexpr std::ptrdiff_t behind_label = 8;
constexpr std::ptrdiff_t behind_button = 11;

TEST(operations, of_hosts_are_in_this_order) {
    using host = d2d::IViewLowerEdgeHost;
    expect_in_order(behind_unknown, &host::set_origin, &host::set_background_color,
                    &host::enable_clear_background, &host::set_default_cursor, &host::set_lower_edge,
                    &host::install_service, &host::uninstall_service, &host::set_upstream_service_provider);
    using target = d2d::IRenderTargetLayer;
    expect_in_order(behind_unknown, &target::attach_render_target, &target::detach_render_target,
                    &target::render);
    using input = d2d::IWin32InputLayer;
    expect_in_order(behind_unknown, &d2d::IWin32InterfaceLayer::attach_hwnd,
                    &d2d::IWin32InterfaceLayer::detach_hwnd, &d2d::IWin32InterfaceLayer::on_window_message,
                    &input::set_origin, &input::set_default_cursor, &input::set_lower_edge);
}

template <class Window>
void expect_order_of_drawing_window() {
    expect_in_order(0, &Window::on_window_message, &Window::on_final_message, &Window::get_wndclass,
                    &Window::render, &Window::acquire_independant_resources,
                    &Window::release_independant_resources,
                    &Window::acquire_render_target_dependant_resources,
                    &Window::release_render_target_dependant_resources,
                    &Window::acquire_render_target_size_dependant_resources,
                    &Window::release_render_target_size_dependant_resources);
}

TEST(operations, of_windows_are_in_this_order) {
    expect_order_of_drawing_window<d2d::window>();
    expect_order_of_drawing_window<d2d::layered_window>();
    expect_in_order(10, &d2d::layered_window_host::invalidate);
    expect_in_order(3, &win32::scroll_window::scroll_offset_changed);
}

TEST(operations, of_floating_nodes_are_in_this_order) {
    using floating = scene::IMovableFloatingNode;
    expect_in_order(behind_unknown, &floating::set_content, &floating::set_position, &floating::commit);
    expect_in_order(behind_unknown, &scene::IFloatingNode::IService::float_node);
}

TEST(operations, of_settings_are_in_this_order) {
    using settings = controls::IStyleSettings;
    expect_in_order(behind_unknown, &settings::get_color, &settings::get_bool, &settings::get_text_format,
                    &settings::get_float, &settings::get_size, &settings::get_brush);
    using builder = controls::IStyleSettingsBuilder;
    expect_in_order(behind_unknown, &builder::set_color, &builder::set_bool, &builder::set_text_format,
                    &builder::set_float, &builder::set_size, &builder::build);
}

template <class Style>
void expect_order_of_button_style() {
    expect_in_order(behind_style, &Style::place_label, &Style::label_brush, &Style::draw);
}

TEST(operations, of_styles_are_in_this_order) {
    expect_in_order(behind_unknown, &controls::IStyle::get_settings);
    expect_order_of_button_style<controls::IButtonStyle>();
    expect_order_of_button_style<controls::ICheckBoxStyle>();
    expect_order_of_button_style<controls::IRadioButtonStyle>();
    expect_in_order(behind_style, &controls::ILabelStyle::text_brush, &controls::ILabelStyle::text_format);
    using edit = controls::ILineEditStyle;
    expect_in_order(behind_style, &edit::text_brush, &edit::selection_background_brush,
                    &edit::selected_text_color, &edit::text_format, &edit::padding, &edit::text_inset,
                    &edit::draw_frame);
    using strip = controls::ICommandStripStyle;
    expect_in_order(behind_style, &strip::draw_outline, &strip::fill_background);
    using popup = controls::IPopupOptionsStyle;
    expect_in_order(behind_style, &popup::label_brush, &popup::draw_frame, &popup::draw_option);
    using bar = controls::IScrollBarStyle;
    expect_in_order(behind_style, &bar::draw_thumb, &bar::draw_track);
    using area = controls::IScrollAreaStyle;
    expect_in_order(behind_style, &area::get_scroll_bar_style, &area::content_rect, &area::draw_separators);
    expect_in_order(behind_style, &controls::IGroupBoxStyle::draw);
}

TEST(operations, of_buttons_and_labels_are_in_this_order) {
    using element = scene::layout::IElement;
    expect_in_order(behind_unknown, &element::measure, &element::arrange, &controls::IControl::get_node,
                    &controls::IControl::get_rect);
    using button = controls::IButton;
    expect_in_order(behind_control, &button::is_checked, &button::set_checked, &button::set_enabled,
                    &button::set_on_click);
    expect_in_order(behind_button, &controls::IPushButton::set_margin);
    expect_in_order(behind_control, &controls::ILabel::set_brush);
    using text = controls::ITextLabel;
    expect_in_order(behind_label, static_cast<void (text::*)(std::string_view)>(&text::set_text),
                    static_cast<void (text::*)(std::wstring_view)>(&text::set_text));
    expect_in_order(behind_label, &controls::IIconLabel::set_geometry);
    expect_in_order(behind_control, &controls::IGroupBox::set_content);
}

TEST(operations, of_scrolling_controls_are_in_this_order) {
    using bar = controls::IScrollBar;
    expect_in_order(behind_control, &bar::set_position, &bar::get_position, &bar::get_range, &bar::set_range,
                    &bar::add_position_listener, &bar::remove_position_listener);
    using area = controls::IScrollArea;
    expect_in_order(behind_control, &area::reserved, &area::set_content_bounds, &area::get_scroll_position,
                    &area::set_scroll_position, &area::add_content, &area::remove_content,
                    &area::set_margin_scrolled_size, &area::add_margin_scrolled_node,
                    &area::remove_margin_scrolled_node, &area::set_margin_fixed_size,
                    &area::set_margin_element, &area::add_margin_fixed_node, &area::remove_margin_fixed_node,
                    &area::set_wheel_mode, &area::set_alignment, &area::get_view_rect,
                    &area::set_view_changed_handler);
}

TEST(operations, of_edits_and_popup_options_are_in_this_order) {
    using edit = controls::ILineEdit;
    expect_in_order(behind_control, &edit::set_on_change, &edit::set_text, &edit::get_text);
    using popup = controls::IPopupOptions;
    expect_in_order(behind_control, &popup::set_on_change, &popup::set_selected, &popup::get_selected);
}

TEST(operations, of_lists_and_tables_are_in_this_order) {
    using list = controls::ILabelList;
    expect_in_order(behind_control, &list::insert_item, &list::reserved1, &list::reserved2, &list::clear,
                    &list::get_selection, &list::reserved3);
    using table = controls::ILabelTable;
    expect_in_order(behind_control, &table::reserved1, &table::clear, &table::clear_section, &table::add_row,
                    &table::insert_row, &table::remove_row, &table::reserved2, &table::set_compare,
                    &table::clear_compare, &table::set_on_header_click, &table::get_row_count,
                    &table::get_selected_key, &table::get_selected_keys, &table::get_selected_value,
                    &table::get_selected_values, &table::enable_multi_select, &table::disable_multi_select,
                    &table::begin_update, &table::end_update);
}

TEST(operations, of_trees_and_their_handlers_are_in_this_order) {
    using node = controls::ITreeNode;
    expect_in_order(behind_unknown, &node::get_data, &node::set_data, &node::set_icon, &node::set_text,
                    &node::set_state_icon, &node::add_child, &node::remove_child, &node::set_expandable,
                    &node::set_expanded, &node::is_expanded, &node::is_selected, &node::set_highlighted,
                    &node::create_drag_image);
    using tree = controls::ITreeView;
    expect_in_order(behind_control, &tree::set_root, &tree::set_handler, &tree::select, &tree::node_at);
    using handler = controls::tree_handler;
    expect_in_order(0, &handler::can_expand, &handler::collapsed, &handler::context_menu,
                    &handler::drag_begin, &handler::selection_changed);
}

#endif

}  // namespace
