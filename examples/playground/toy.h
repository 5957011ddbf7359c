#pragma once

#include "com/object.h"
#include "com/weak_ptr.h"
#include "common/node.h"
#include "common/palette.h"

#include <functional>

namespace playground {

/// A picture that can be played with: it lights up under the mouse, takes the keyboard focus with a click and
/// shows that by a ring, and is moved by dragging and by the arrow keys. Escape takes a drag back. Its owner
/// keeps it; the handlers of its node know it weakly.
class toy : public com::base_object<com::object_base, IUnknown> {
public:
    /// What shows of a toy lies within this distance of its centre, in both directions.
    static constexpr float reach = 56;

    toy(const sketch::node& picture, D2D_POINT_2F centre, const sketch::palette& palette);
    void final_construct();

    /// Told after each move.
    std::function<void()> on_moved;

    /// To be shown; its (0, 0) is the centre of the toy.
    [[nodiscard]] const sketch::node& node() const noexcept { return frame; }
    /// The rectangle that the toy is kept in, moved into it at once.
    void keep_within(D2D_RECT_F limits);

protected:
    ~toy() = default;

private:
    [[nodiscard]] bool on_mouse(const d2d::input::mouse::event& event);
    [[nodiscard]] bool on_key(const d2d::input::key::event& event);
    void drag(D2D_POINT_2F grip);
    void move_to(D2D_POINT_2F wanted);
    void record();

    const sketch::palette& colours;
    sketch::node frame = d2d::scene::create_node();
    D2D_POINT_2F place;
    D2D_RECT_F room{-10'000, -10'000, 10'000, 10'000};
    bool under_mouse = false;
    bool focused = false;
};

}  // namespace playground
