#pragma once

#include "controls/label_impl.h"
#include "d2d/ui/IIconLabel.h"

namespace d2d {

class icon_label : public label_impl<icon_label, ui::IIconLabel> {
public:
    explicit icon_label(IUnknown* style_source) : label_impl(style_source) {}

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;
    // IIconLabel
    void set_geometry(ID2D1Geometry* new_geometry) override;

    void redraw();

protected:
    ~icon_label() = default;

private:
    com::ptr<ID2D1Geometry> geometry;
};

}  // namespace d2d
