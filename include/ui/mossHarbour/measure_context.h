#pragma once

#include <cstddef>

#include <windows.h>

namespace ui::mossHarbour {

/// What measuring needs of the place where something is shown. Lives for one call: not to be kept.
class measure_context {
public:
    /// The size of UTF-16 text in the toolkit font, in pixels; `length` in units.
    virtual SIZE measure_text(const wchar_t* text, std::size_t length) = 0;

protected:
    ~measure_context() = default;
};

}  // namespace ui::mossHarbour
