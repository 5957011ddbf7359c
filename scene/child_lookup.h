#pragma once

#include "scene/hit_index.h"
#include "scene/union_tree.h"

#include <memory>

namespace d2d::scene {

/// What a node with many children keeps, so that not each of them is asked every time. The parts are made and
/// dropped by themselves.
struct child_lookup {
    std::unique_ptr<hit_index> index;
    std::unique_ptr<union_tree> unions;
    bool tested_before = false;  // a hit test has missed an index
};

}  // namespace d2d::scene
