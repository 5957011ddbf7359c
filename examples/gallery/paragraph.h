#pragma once

#include "block.h"
#include "common/node.h"
#include "look.h"

#include <string>

namespace gallery {

/// Text that is broken into lines of the width that there is.
class paragraph : public block {
public:
    /// Shown by a child of `card`.
    paragraph(const sketch::node& card, std::wstring words, look::format format, look::brush brush);

    float place(D2D_POINT_2F corner, float width) override;

private:
    std::wstring text;
    look::format font;
    look::brush colour;
    sketch::node node = d2d::scene::create_node();
};

}  // namespace gallery
