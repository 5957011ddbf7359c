#pragma once

#include "choice.h"
#include "controls.h"
#include "d2d/ui/IScrollArea.h"
#include "holder.h"

namespace gallery {

/// A small scroll area, with a button for each corner, side and the middle to align its content to.
class alignment {
public:
    explicit alignment(const look& colours);
    alignment(const alignment&) = delete;
    alignment& operator=(const alignment&) = delete;

    [[nodiscard]] const sketch::node& node() const noexcept { return root; }

    static constexpr float height = 104;
    /// Fills a rectangle of the parent's space.
    void place(D2D_RECT_F rect);
    /// Whether the content is larger than the area.
    void enlarge(bool large);

private:
    void align(std::size_t which);

    const look& style;
    sketch::node root = d2d::scene::create_node();
    sketch::node frame = d2d::scene::create_node();
    sketch::node content = d2d::scene::create_node();
    com::ptr<d2d::ui::IScrollArea> area = d2d::ui::create_scroll_area({0, 0, 1, 1}, nullptr);
    holder area_place{root, area};
    std::vector<com::ptr<d2d::ui::IButton>> buttons;
    choice places{[this](std::size_t which) { align(which); }};
};

}  // namespace gallery
