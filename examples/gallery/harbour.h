#pragma once

#include "common/node.h"
#include "common/palette.h"

namespace gallery {

/// A picture of a boat off a coast, of which all can be changed.
class harbour {
public:
    harbour();

    bool sun = true;
    bool hills = true;
    bool waves = true;
    bool anchored = false;
    sketch::palette::brush sail = sketch::palette::of(0xFBF7EC);

    [[nodiscard]] const sketch::node& node() const noexcept { return picture; }

    /// Fills a rectangle of the parent's space.
    void place(D2D_RECT_F rect);
    /// Shows what has been changed.
    void record();
    /// Moves the boat by so much, as far as the picture goes. Returns the distance from the left end that it
    /// is at then.
    float sail_by(float distance);

private:
    void record_coast(d2d::scene::IDrawingContext& context) const;
    void record_sea(d2d::scene::IDrawingContext& context) const;
    void record_boat();
    void move_boat();

    sketch::palette colours;
    sketch::node picture = d2d::scene::create_node();
    sketch::node boat = d2d::scene::create_node();
    D2D_SIZE_F size{};
    float at = 96;
};

}  // namespace gallery
