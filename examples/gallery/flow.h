#pragma once

#include "block.h"
#include "common/node.h"
#include "d2d/ui/IControl.h"

#include <vector>

namespace gallery {

/// Controls one beside the other, going on in another line where there is no more room. Keeps them.
class flow : public block {
public:
    /// The controls become children of `card`.
    explicit flow(sketch::node card, float distance) : parent(std::move(card)), between(distance) {}

    /// A control in the size that it prefers.
    flow& add(com::ptr<d2d::ui::IControl> control);
    flow& add(com::ptr<d2d::ui::IControl> control, D2D_SIZE_F size);
    /// The same, always on the line of the one before.
    flow& add_joined(com::ptr<d2d::ui::IControl> control, D2D_SIZE_F size);
    /// A control that takes part in no layout: its node is moved.
    flow& add_moved(com::ptr<d2d::ui::IControl> control);

    float place(D2D_POINT_2F corner, float width) override;

private:
    enum class manner { preferred, sized, moved };

    struct item {
        com::ptr<d2d::ui::IControl> control;
        manner kind;
        D2D_SIZE_F size;
        bool joined = false;
    };

    flow& add(item added);
    [[nodiscard]] static D2D_SIZE_F size_of(const item& each);
    [[nodiscard]] float width_with_joined(std::size_t first) const;
    void place_line(std::size_t first, std::size_t end, D2D_POINT_2F corner, float height) const;

    sketch::node parent;
    float between;
    std::vector<item> items;
};

}  // namespace gallery
