#pragma once

#include "ui/mossHarbour/element_metrics.h"
#include "ui/mossHarbour/measure_context.h"

#include <string_view>

#include <windows.h>

namespace ui::mossHarbour {

[[nodiscard]] SIZE text_size(measure_context& context, std::wstring_view text);
/// The size of the text that a window has.
[[nodiscard]] SIZE window_text_size(measure_context& context, HWND window);
/// The least size of what the user can type or choose in: one "M", with room around it.
[[nodiscard]] SIZE least_field_size(measure_context& context);

/// A size that neither grows nor shrinks.
[[nodiscard]] element_metrics fixed_metrics(SIZE size) noexcept;
/// A field of one line that takes any width. `content` is the size of what it shows.
[[nodiscard]] element_metrics field_metrics(SIZE least, SIZE content) noexcept;

}  // namespace ui::mossHarbour
