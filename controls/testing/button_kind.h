#pragma once

#include "controls/testing/recording_style.h"
#include "d2d/ui/ICheckBox.h"
#include "d2d/ui/IPushButton.h"

#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace d2d::fakes {

/// One of the ways to make a button. All of them behave alike but for what is said here.
struct button_kind {
    const char* name;
    bool latches;
    D2D_RECT_F margin;  ///< between its rectangle and the place of its label
    com::ptr<ui::IButton> (*make)(ui::ILabel* label, D2D_RECT_F rect, IUnknown* style);
    com::ptr<IUnknown> (*make_style)(scene::fakes::log_function log);
};

template <class Style>
[[nodiscard]] com::ptr<IUnknown> make_recording_style(scene::fakes::log_function log) {
    return com::create_object<recording_button_style<Style>>(std::move(log));
}
template <bool Latching>
[[nodiscard]] com::ptr<ui::IButton> make_push_button(ui::ILabel* label, D2D_RECT_F rect, IUnknown* style) {
    return ui::create_push_button(label, rect, Latching, style);
}
[[nodiscard]] inline com::ptr<ui::IButton> make_check_box(ui::ILabel* label, D2D_RECT_F rect,
                                                          IUnknown* style) {
    return ui::create_check_box(label, rect, style);
}

inline constexpr button_kind push_kind{
    "push_button", false, {2, 1, 2, 1}, make_push_button<false>, make_recording_style<ui::IButtonStyle>};
inline constexpr button_kind latching_kind{"latching_push_button",
                                           true,
                                           {2, 1, 2, 1},
                                           make_push_button<true>,
                                           make_recording_style<ui::IButtonStyle>};
inline constexpr button_kind check_box_kind{
    "check_box", true, {}, make_check_box, make_recording_style<ui::ICheckBoxStyle>};
inline constexpr button_kind radio_button_kind{
    "radio_button", true, {}, ui::create_radio_button, make_recording_style<ui::IRadioButtonStyle>};

inline constexpr button_kind button_kinds[] = {push_kind, latching_kind, check_box_kind, radio_button_kind};

inline void PrintTo(const button_kind& kind, std::ostream* out) {
    *out << kind.name;
}

[[nodiscard]] inline std::string name_of_kind(const testing::TestParamInfo<button_kind>& info) {
    return info.param.name;
}

}  // namespace d2d::fakes
