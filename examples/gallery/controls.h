#pragma once

#include "d2d/ui/ICheckBox.h"
#include "d2d/ui/IIconLabel.h"
#include "d2d/ui/IPushButton.h"
#include "d2d/ui/ITextLabel.h"
#include "look.h"

#include <string_view>

namespace gallery {

// Controls as the gallery has them: in its fonts, with room around the words. They are placed later.

[[nodiscard]] com::ptr<d2d::ui::ITextLabel> make_label(std::wstring_view text, const look::format& font,
                                                       look::brush colour = nullptr);
/// Changes the text of a label that has been placed: it starts where it started.
void change_text(d2d::ui::ITextLabel& label, std::wstring_view text);

/// `icon` is a path of an icon, see `icons`, `size` its side.
[[nodiscard]] com::ptr<d2d::ui::IIconLabel> make_icon(std::string_view icon, float size,
                                                      look::brush colour = nullptr);

enum class press { clicks, latches };

/// A push button of a label, disabled until it has a handler.
[[nodiscard]] com::ptr<d2d::ui::IPushButton> make_button(d2d::ui::ILabel* label, press kind = press::clicks);
[[nodiscard]] com::ptr<d2d::ui::IPushButton> make_button(const look& style, std::wstring_view text,
                                                         press kind = press::clicks);
[[nodiscard]] com::ptr<d2d::ui::ICheckBox> make_check_box(const look& style, std::wstring_view text);
[[nodiscard]] com::ptr<d2d::ui::IButton> make_radio_button(const look& style, std::wstring_view text);

}  // namespace gallery
