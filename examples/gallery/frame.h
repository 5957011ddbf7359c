#pragma once

#include "holder.h"
#include "look.h"

namespace gallery {

/// A line around a control that scrolls what is in it.
class frame {
public:
    frame(const look& colours, const com::ptr<d2d::ui::IControl>& control)
        : style(colours), inside(outline, control) {}

    [[nodiscard]] const sketch::node& node() const noexcept { return outline; }

    /// Puts the line just inside a rectangle of the parent's space, and the control into it.
    void place(D2D_RECT_F rect) {
        const auto line =
            sketch::rectangle(rect.left + 0.5f, rect.top + 0.5f, rect.right - 0.5f, rect.bottom - 0.5f);
        outline->draw(true)->draw_geometry(line.get(), style.edge.get(), 1, nullptr);
        inside.place({rect.left + 1, rect.top + 1, rect.right - 1, rect.bottom - 1});
    }

private:
    const look& style;
    sketch::node outline = d2d::scene::create_node();
    holder inside;
};

}  // namespace gallery
