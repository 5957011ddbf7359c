#pragma once

#include "d2d/ui/IStyleSettings.h"

namespace d2d {

/// Throws `std::logic_error` "unrecognized style identifier".
[[noreturn]] void unrecognized_style_key();

/// The brush of a key; one without an answer is unrecognized.
[[nodiscard]] com::ptr<scene::IBrush> style_brush(ui::IStyleSettings& settings, std::string_view key);

}  // namespace d2d
