#pragma once

#include "choice.h"
#include "d2d/ui/IScrollArea.h"
#include "holder.h"
#include "look.h"

namespace gallery {

/// The column of buttons, one for each page; it scrolls where it is too high.
class navigation {
public:
    /// Told the number of the page that is chosen.
    navigation(const look& style, const sketch::node& parent, std::function<void(std::size_t)> chosen);

    static constexpr float width = 184;
    void place(D2D_RECT_F rect);
    /// Chooses the page so many places further, around the end.
    void step(int places);

private:
    choice pages;
    sketch::node column = d2d::scene::create_node();
    com::ptr<d2d::ui::IScrollArea> area = d2d::ui::create_scroll_area({0, 0, 1, 1}, nullptr);
    holder area_place;
};

}  // namespace gallery
