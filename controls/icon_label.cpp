#include "controls/icon_label.h"

#include "com/check.h"
#include "com/object.h"

#include <stdexcept>

namespace d2d {

scene::layout::metrics icon_label::measure() {
    throw std::logic_error("not implemented");
}

void icon_label::arrange(D2D_RECT_F) {
    throw std::logic_error("not implemented");
}

void icon_label::set_geometry(ID2D1Geometry* new_geometry) {
    D2D_RECT_F bounds{};
    com::check(new_geometry->GetBounds(nullptr, &bounds));
    rect = bounds;
    geometry = new_geometry;
    redraw();
}

void icon_label::redraw() {
    const auto context = node->draw(false);
    context->fill_geometry(geometry.get(), effective_brush().get());
    context->commit();
}

com::ptr<ui::IIconLabel> ui::create_icon_label(ID2D1Geometry* geometry, IUnknown* style) {
    auto label = com::create_object<icon_label>(style);
    label->set_geometry(geometry);
    return label;
}

}  // namespace d2d
