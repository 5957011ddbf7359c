#include "water.h"

#include "common/shapes.h"
#include "d2d/factory.h"

#include <string>

namespace gallery {

com::ptr<ID2D1Geometry> water(float width, float surface, float bottom, float shift) {
    constexpr float length = 48;
    std::string path = "M0 0";
    float end = -shift;
    for (; end < width; end += length) path += " c16 -7 32 7 48 0";
    path += " v" + std::to_string(bottom - surface) + " h" + std::to_string(-shift - end) + " Z";
    return d2d::factory::parse_svg_path(path, sketch::moved(-shift, surface));
}

}  // namespace gallery
