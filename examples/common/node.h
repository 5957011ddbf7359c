#pragma once

#include "d2d/scene/INode.h"

namespace sketch {

using node = com::ptr<d2d::scene::INode>;

/// A node with the recording that `record(context)` makes.
template <class Record>
[[nodiscard]] node recorded(Record&& record) {
    auto result = d2d::scene::create_node();
    const auto context = result->draw(true);
    record(*context);
    return result;
}

}  // namespace sketch
