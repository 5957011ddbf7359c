#pragma once

#include "controls/control_impl.h"
#include "d2d/ui/IGroupBox.h"
#include "d2d/ui/IGroupBoxStyle.h"

namespace d2d {

class group_box : public control_impl<group_box, ui::IGroupBoxStyle, ui::IGroupBox> {
public:
    group_box(ui::ILabel* caption, const D2D_RECT_F& box_rect, IUnknown* style_source);

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;

    // IGroupBox
    com::ptr<scene::INode> set_content(com::ptr<scene::INode> new_content) override;

protected:
    ~group_box() = default;

private:
    void redraw();

    const com::ptr<ui::ILabel> label;  // kept for the client: not shown yet
    com::ptr<scene::INode> content;
};

}  // namespace d2d
