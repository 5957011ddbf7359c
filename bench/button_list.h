#pragma once

#include "d2d/scene/INode.h"
#include "d2d/ui/IPushButton.h"

#include <vector>

namespace bench {

/// Latching push buttons with a text, and the parent of their nodes.
struct button_list {
    com::ptr<d2d::scene::INode> parent;
    std::vector<com::ptr<d2d::ui::IPushButton>> buttons;
};

/// Adds `count` buttons in rows, each with a label of its own.
void add_buttons(button_list& list, std::size_t count);

[[nodiscard]] button_list make_buttons(std::size_t count);

}  // namespace bench
