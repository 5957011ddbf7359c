#pragma once

#include "area.h"
#include "flow.h"
#include "look.h"

#include <memory>
#include <vector>

namespace gallery {

/// A white sheet with a heading, a few words, and blocks one under the other.
class card {
public:
    card(const look& colours, std::wstring heading, std::wstring words);
    card(const card&) = delete;
    card& operator=(const card&) = delete;

    [[nodiscard]] const sketch::node& node() const noexcept { return sheet; }

    /// A line of controls.
    flow& add_flow(float between = space::small);
    /// A place of at least this height.
    area& add_area(float height, area::place_function placed);

    /// A card that has a row to itself.
    card& make_wide() noexcept {
        wide = true;
        return *this;
    }
    [[nodiscard]] bool is_wide() const noexcept { return wide; }

    /// Goes to a place in the parent's space. Returns the height that it needs there.
    float place(D2D_POINT_2F corner, float width);
    /// Paints the sheet, at least as high as it needs to be.
    void paint(D2D_SIZE_F size);

private:
    const look& style;
    sketch::node sheet = d2d::scene::create_node();
    bool wide = false;
    std::vector<std::unique_ptr<block>> blocks;
};

}  // namespace gallery
