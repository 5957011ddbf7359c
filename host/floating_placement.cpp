#include "host/floating_placement.h"

#include <cmath>

namespace d2d::scene {
namespace {

constexpr float greatest_side = 1073741760.0f;  // the differences of two are integers still

float away_from_zero(float side) noexcept {
    return side >= 0.0f ? std::ceil(side) : std::floor(side);
}

/// The integer nearby, for a side that may stand just short of it.
LONG to_integer(float side) noexcept {
    if (!(side > -greatest_side)) return static_cast<LONG>(-greatest_side);  // what is not a number, too
    if (side > greatest_side) return static_cast<LONG>(greatest_side);
    return static_cast<LONG>(side >= 0.0f ? side + 0.25f : side - 0.25f);
}

}  // namespace

floating_placement place_floating(const D2D_RECT_F& bounds, D2D_POINT_2F position) noexcept {
    const float left = std::trunc(bounds.left + position.x);
    const float top = std::trunc(bounds.top + position.y);
    const float right = away_from_zero(bounds.right + position.x);
    const float bottom = away_from_zero(bounds.bottom + position.y);
    return {{to_integer(left), to_integer(top), to_integer(right), to_integer(bottom)},
            {position.x - left, position.y - top}};
}

}  // namespace d2d::scene
