#pragma once

#include "com/base_object.h"
#include "controls/default_style_looks.h"

namespace d2d {

/// The library's style, with the interfaces of all controls. All controls without a style of their own share
/// one, which lives as long as somebody holds it.
class default_style
    : public com::base_object<com::object_base, default_button_style, default_check_box_style,
                              default_radio_button_style, default_label_style, default_line_edit_style,
                              default_command_strip_style, default_popup_options_style,
                              default_scroll_bar_style, default_scroll_area_style, default_group_box_style>,
      public default_style_base {
public:
    /// Throws `std::logic_error` when the settings have no format for labels.
    explicit default_style(com::ptr<ui::IStyleSettings> values);

    // IStyle
    com::ptr<ui::IStyleSettings> get_settings() override { return settings; }

    // IScrollAreaStyle
    com::ptr<ui::IScrollBarStyle> get_scroll_bar_style() override { return this; }

protected:
    ~default_style();

private:
    [[nodiscard]] const default_style_base& base() const noexcept override { return *this; }
};

}  // namespace d2d
