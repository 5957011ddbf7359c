#pragma once

#include "com/object.h"
#include "d2d/ui/ILabel.h"

namespace gallery {

/// A label of the gallery's own: a sample of a colour. It keeps that, whatever brush a button chooses for it.
class swatch : public com::base_object<com::object_base, d2d::ui::ILabel> {
public:
    explicit swatch(d2d::scene::IBrush* colour);

    d2d::scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F) override {}
    com::ptr<d2d::scene::INode> get_node() override { return node; }
    D2D_RECT_F get_rect() override;
    void set_brush(com::ptr<d2d::scene::IBrush>) override {}

protected:
    ~swatch() = default;

private:
    com::ptr<d2d::scene::INode> node = d2d::scene::create_node();
};

}  // namespace gallery
