#pragma once

#include "ui/mossHarbour/measure_context.h"

#include <stdexcept>

namespace ui::mossHarbour {

/// For what is shown on the scene. Controls of the scene measure themselves: asked for text it throws
/// `std::logic_error` "not expected".
class d2d_measure_context final : public measure_context {
public:
    SIZE measure_text(const wchar_t*, std::size_t) override { throw std::logic_error("not expected"); }
};

}  // namespace ui::mossHarbour
