#pragma once

#include "com/object.h"
#include "d2d/scene/layout/IElement.h"

namespace d2d::scene::fakes {

/// An element that has the metrics it is given and keeps its latest rectangle.
class fake_element : public com::base_object<com::object_base, layout::IElement> {
public:
    explicit fake_element(const layout::metrics& measured) noexcept : own(measured) {}

    layout::metrics measure() override {
        ++measures;
        return own;
    }
    void arrange(D2D_RECT_F given) override {
        ++arranges;
        rect = given;
    }

    layout::metrics own;
    D2D_RECT_F rect{};
    int measures = 0;
    int arranges = 0;

protected:
    ~fake_element() = default;
};

}  // namespace d2d::scene::fakes
