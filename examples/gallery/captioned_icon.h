#pragma once

#include "com/object.h"
#include "controls.h"

namespace gallery {

/// A label of the gallery's own: an icon with a text beside it, in a place of a fixed size. Whatever takes a
/// label takes this one, too.
class captioned_icon : public com::base_object<com::object_base, d2d::ui::ILabel> {
public:
    captioned_icon(std::string_view icon, std::wstring_view text, const look::format& font, D2D_SIZE_F size);

    d2d::scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F place) override;
    com::ptr<d2d::scene::INode> get_node() override { return node; }
    D2D_RECT_F get_rect() override { return rect; }
    void set_brush(com::ptr<d2d::scene::IBrush> brush) override;

protected:
    ~captioned_icon() = default;

private:
    com::ptr<d2d::scene::INode> node = d2d::scene::create_node();
    com::ptr<d2d::ui::IIconLabel> picture;
    com::ptr<d2d::ui::ITextLabel> caption;
    D2D_RECT_F rect;
};

}  // namespace gallery
