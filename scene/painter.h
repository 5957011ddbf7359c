#pragma once

#include "scene/matrix.h"
#include "scene/tree_walk.h"

#include <array>

#include <d2d1.h>

namespace d2d::scene {

/// One paint of a tree: replays all recordings on a target. A node's picture is its background commands, then
/// its children in order, then its foreground commands, all inside its clip. Nothing is left out for being
/// outside the invalid area: the clip on the target sees to that.
class painter {
public:
    /// `world` maps the root's space to the target, which has it as its transform. `time` is the frame's.
    painter(ID2D1RenderTarget* on, const D2D_MATRIX_3X2_F& root_to_target, double frame_time) noexcept
        : target(on), world(root_to_target), time(frame_time) {}

    void paint(node& root);

private:
    [[nodiscard]] bool enter(node& at);
    void leave(node& at);
    void replay(const command_list& commands) const;
    void replay_through_effect(const node& at) const;

    ID2D1RenderTarget* target;
    D2D_MATRIX_3X2_F world;
    double time;
    std::array<D2D_MATRIX_3X2_F, maximal_depth> saved;
    std::size_t depth = 0;
};

}  // namespace d2d::scene
