#pragma once

#include "common/node.h"
#include "controls.h"
#include "d2d/ui/IScrollBar.h"
#include "holder.h"

#include <array>

namespace gallery {

/// A tank of water, with scroll bars for the colour and the height of the water.
class tank {
public:
    explicit tank(const look& colours);
    tank(const tank&) = delete;
    tank& operator=(const tank&) = delete;

    [[nodiscard]] const sketch::node& node() const noexcept { return root; }

    static constexpr float height = 104;
    /// Fills a rectangle of the parent's space.
    void place(D2D_RECT_F rect);

private:
    struct channel {
        com::ptr<d2d::ui::ITextLabel> name;
        com::ptr<d2d::ui::IScrollBar> bar;
        holder place;
        com::ptr<d2d::ui::ITextLabel> value;
    };

    [[nodiscard]] channel make_channel(std::wstring_view name, float value);
    void record();

    const look& style;
    sketch::node root = d2d::scene::create_node();
    sketch::node glass = d2d::scene::create_node();
    std::array<channel, 3> channels;
    com::ptr<d2d::ui::IScrollBar> level;
    holder level_place{root, level};
};

}  // namespace gallery
