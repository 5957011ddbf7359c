#pragma once

#include "controls/label_list.h"
#include "controls/mouse_state.h"

namespace d2d::ui {

/// A row. Its node holds the label's, and draws what lies behind it.
class label_list::item : public com::base_object<com::object_base, scene::layout::IElement> {
public:
    item(label_list& owner, ILabel* shown, int row_value);
    void final_construct();

    // IElement
    scene::layout::metrics measure() override;
    void arrange(D2D_RECT_F new_rect) override;

    void redraw(const label_list& owner);

    const com::ptr<ILabel> label;
    const int value;
    const com::ptr<scene::INode> node = scene::create_node();

protected:
    ~item() = default;

private:
    void handle_mouse(label_list& owner, const input::mouse::event& event);

    const com::weak_ptr<label_list> list;
    D2D_RECT_F margin{};  // around the label, as of the latest `measure`
    D2D_RECT_F rect{};
    mouse_state mouse;
};

}  // namespace d2d::ui
