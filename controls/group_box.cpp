#include "controls/group_box.h"

#include "com/object.h"
#include "controls/node_placement.h"
#include "scene/rectangle.h"

#include <utility>

namespace d2d {

group_box::group_box(ui::ILabel* caption, const D2D_RECT_F& box_rect, IUnknown* style_source)
    : control_impl(style_source, box_rect), label(caption) {
    if (rect.right - rect.left > 0 && rect.bottom - rect.top > 0) redraw();
}

scene::layout::metrics group_box::measure() {
    constexpr float room = 10;  // for the frame: the content gets no inset, kept
    if (!content) return {{room, room, 0, 0}, {}, {}, {}};
    const D2D_RECT_F bounds = content->get_bounds(true);
    const D2D_SIZE_F size{bounds.right - bounds.left + room, bounds.bottom - bounds.top + room};
    return {{}, size, size, size};
}

void group_box::arrange(D2D_RECT_F new_rect) {
    if (scene::same_edges(rect, new_rect)) return;
    rect = new_rect;
    if (content) move_node(*content, {rect.left, rect.top});
    redraw();
}

com::ptr<scene::INode> group_box::set_content(com::ptr<scene::INode> new_content) {
    // Stored ahead of the changes: a handler that hears of one finds the new content, and may set another.
    com::ptr<scene::INode> former = std::exchange(content, new_content);
    if (former) node->remove_child(former);
    if (new_content && content == new_content) node->add_child(std::move(new_content));
    return former;
}

void group_box::redraw() {
    const auto context = node->draw(false);
    style->draw(context.get(), rect, {});
    context->commit();
}

}  // namespace d2d

namespace d2d::ui {

com::ptr<IGroupBox> create_group_box(ILabel* label, D2D_RECT_F rect, IUnknown* style) {
    return com::create_object<group_box>(label, rect, style);
}

}  // namespace d2d::ui
