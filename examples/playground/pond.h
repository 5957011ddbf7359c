#pragma once

#include "toy.h"

#include <vector>

namespace playground {

/// The water that the toys swim in. Tab takes the focus from toy to toy; a click beside them takes it away.
class pond : public com::base_object<com::object_base, IUnknown> {
public:
    explicit pond(const sketch::palette& palette) : colours(palette) {}
    void final_construct();

    [[nodiscard]] const sketch::node& node() const noexcept { return water; }
    /// Adds a toy with its centre at a point of the pond.
    com::ptr<toy> add(const sketch::node& picture, D2D_POINT_2F centre);
    /// Takes the place that a window of this size leaves for it, and keeps the toys there.
    void fit(D2D_SIZE_U window);

protected:
    ~pond() = default;

private:
    [[nodiscard]] bool on_key(const d2d::input::key::event& event);
    void pass_focus(bool back);

    const sketch::palette& colours;
    sketch::node water = d2d::scene::create_node();
    std::vector<com::ptr<toy>> toys;
    D2D_RECT_F shore{};
};

}  // namespace playground
