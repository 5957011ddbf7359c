#include "icons.h"

#include "d2d/factory.h"

namespace gallery::icons {

com::ptr<ID2D1Geometry> geometry(std::string_view icon, float size) {
    const float scale = size / 24;
    return d2d::factory::parse_svg_path(icon, {{{scale, 0, 0, scale, -size / 2, -size / 2}}});
}

}  // namespace gallery::icons
