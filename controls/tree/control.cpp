#include "controls/tree/control.h"

#include "com/object.h"

namespace d2d::ui::tree {

void control::final_construct() {
    const com::weak_ptr<control> weak(this);
    scene::INode& content = shown.content_node();
    content.add_mouse_handler([weak](scene::INode*, int depth, input::mouse::event event) {
        const auto self = weak.lock();
        const bool is_press = event.type == input::mouse::event_type::button_down;
        if (self && is_press && depth < 1) self->shown.content_node().set_focus();
        return false;
    });
    content.set_focus_handler(true, [weak](scene::INode*, scene::INode*) {
        if (const auto self = weak.lock()) self->shown.redraw_selected();
    });
}

}  // namespace d2d::ui::tree

namespace d2d::ui {

com::ptr<ITreeView> ITreeView::create() {
    return com::create_object<tree::control>();
}

}  // namespace d2d::ui
