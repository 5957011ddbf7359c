#include "controls/style_brush.h"

#include <stdexcept>

namespace d2d {

void unrecognized_style_key() {
    throw std::logic_error("unrecognized style identifier");
}

com::ptr<scene::IBrush> style_brush(ui::IStyleSettings& settings, std::string_view key) {
    auto found = settings.get_brush(key);
    if (!found) unrecognized_style_key();
    return found;
}

}  // namespace d2d
