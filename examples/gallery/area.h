#pragma once

#include "block.h"

#include <functional>

namespace gallery {

/// A place for what is no line of controls: its owner is told where it is.
class area : public block {
public:
    using place_function = std::function<void(D2D_RECT_F)>;

    area(float least, place_function function) : height(least), placed(std::move(function)) {}

    /// How much higher it is to be than it needs to.
    void grow(float by) noexcept { more = by; }

    float place(D2D_POINT_2F corner, float width) override {
        placed({corner.x, corner.y, corner.x + width, corner.y + height + more});
        return height + more;
    }

private:
    float height;
    float more = 0;
    place_function placed;
};

}  // namespace gallery
