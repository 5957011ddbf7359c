#pragma once

#include <d2d1.h>

namespace gallery {

/// What cards are put together from: it takes the width that it is given, and the height that it needs for
/// it.
class block {
public:
    virtual ~block() = default;

    /// Takes the place to the right of and below `corner`. Returns its height. In pixels of the card.
    virtual float place(D2D_POINT_2F corner, float width) = 0;
};

}  // namespace gallery
