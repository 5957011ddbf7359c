#include "portable/native_metrics.h"

#include "portable/control_window.h"

#include <algorithm>

namespace ui::mossHarbour {
namespace {

/// A field's text with its frame.
SIZE field_around(SIZE text) noexcept {
    return {text.cx + 8, text.cy + 6};
}

}  // namespace

SIZE text_size(measure_context& context, std::wstring_view text) {
    return context.measure_text(text.data(), text.size());
}

SIZE window_text_size(measure_context& context, HWND window) {
    return text_size(context, text_of_window(window));
}

SIZE least_field_size(measure_context& context) {
    return field_around(text_size(context, L"M"));
}

element_metrics fixed_metrics(SIZE size) noexcept {
    element_metrics result{};
    result.min_width = result.max_width = result.preferred_width = size.cx;
    result.min_height = result.max_height = result.preferred_height = size.cy;
    return result;
}

element_metrics field_metrics(SIZE least, SIZE content) noexcept {
    const SIZE wanted = field_around(content);
    element_metrics result{};
    result.min_width = least.cx;
    result.min_height = result.max_height = least.cy;
    result.max_width = unbounded_extent;
    result.preferred_width = std::max(least.cx, wanted.cx);
    result.preferred_height = std::max(least.cy, wanted.cy);
    return result;
}

}  // namespace ui::mossHarbour
