#include "host/pixel_rect.h"

#include <cmath>

namespace d2d {
namespace {

constexpr float least_side = -32767.0f;
constexpr float greatest_side = 32766.0f;

LONG clamped(float side) noexcept {
    if (!(side > least_side)) return static_cast<LONG>(least_side);  // what is not a number, too
    return static_cast<LONG>(side < greatest_side ? side : greatest_side);
}

}  // namespace

RECT to_pixels(const D2D_RECT_F& rect, D2D_POINT_2F origin) noexcept {
    return {clamped(std::floor(rect.left + origin.x)), clamped(std::floor(rect.top + origin.y)),
            clamped(std::ceil(rect.right + origin.x)), clamped(std::ceil(rect.bottom + origin.y))};
}

}  // namespace d2d
