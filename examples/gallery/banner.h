#pragma once

#include "common/node.h"
#include "look.h"

namespace gallery {

/// The band at the top of the window: the name of the library above waves.
class banner {
public:
    explicit banner(const look& colours) : style(colours) {}

    static constexpr float height = 80;
    [[nodiscard]] const sketch::node& node() const noexcept { return band; }
    void place(float width);

private:
    const look& style;
    sketch::node band = d2d::scene::create_node();
};

}  // namespace gallery
