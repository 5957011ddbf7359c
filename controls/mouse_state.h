#pragma once

#include "d2d/input/mouse.h"
#include "d2d/scene/INode.h"
#include "win32/scope_exit.h"

#include <utility>

namespace d2d {

/// What the mouse does to something: it is over it, it holds it down. `redraw` is called whenever one of the
/// two changes.
class mouse_state {
public:
    [[nodiscard]] bool is_hot() const noexcept { return hover_count_ > 0; }
    [[nodiscard]] bool is_down() const noexcept { return is_down_; }

    /// Takes an enter or leave event, and passes over others.
    template <class Redraw>
    void count_hover(const input::mouse::event& event, Redraw&& redraw) {
        const bool before = is_hot();
        if (event.type == input::mouse::event_type::enter) ++hover_count_;
        if (event.type == input::mouse::event_type::leave) --hover_count_;
        if (is_hot() != before) redraw();
    }

    /// Holds it down, and hot, until the button is released; not down while the mouse is off what `node` has
    /// recorded. Returns whether the mouse was on it at the end, and leaves it to the caller to draw it
    /// released. Whoever calls keeps this and `node` alive.
    template <class Redraw>
    [[nodiscard]] bool press(scene::INode& node, input::mouse::button button, Redraw&& redraw) {
        try {
            return hold(node, button, redraw);
        } catch (...) {
            redraw();  // what a handler inside the loop has thrown goes on, and nothing stays pressed
            throw;
        }
    }

private:
    template <class Redraw>
    bool hold(scene::INode& node, input::mouse::button button, Redraw& redraw) {
        ++hover_count_;
        is_down_ = true;
        const win32::scope_exit released([this] {
            is_down_ = false;
            --hover_count_;
        });
        redraw();
        node.drag_loop(button, [&](D2D_POINT_2F point) {
            const bool on_it = node.hit_test(point);
            if (std::exchange(is_down_, on_it) != on_it) redraw();
            return false;
        });
        return is_down_;
    }

    int hover_count_ = 0;  // not a flag: nodes below report enter and leave too
    bool is_down_ = false;
};

}  // namespace d2d
