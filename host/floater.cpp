#include "host/floater.h"

#include "com/object.h"
#include "d2d/IViewLowerEdge.h"

#include <algorithm>
#include <utility>

namespace d2d::scene {

floater::floater(D2D_POINT_2F point, INode* content_to_show)
    : view(create_view()),
      root(create_node()),
      shown_position(point),
      position(point),
      shown_content(content_to_show),
      content(content_to_show) {}

floater::floater(HWND parent, bool transparent, D2D_POINT_2F point, INode* content_to_show)
    : floater(point, content_to_show) {
    static_cast<void>(set_lower_edge(com::ptr<IViewLowerEdge>(view)));
    root->add_child(content);
    wanted = placement();
    shown.rect = wanted.rect;
    apply_origin(wanted.origin);
    view->set_root(root);
    create(parent, nullptr, shown.rect, transparent, false);
    show_window(transparent ? SW_SHOWNOACTIVATE : SW_SHOW);
    bounds_token = root->add_bounds_handler([this](bool, D2D_RECT_F) { wanted = placement(); });
}

floater::~floater() {
    root->remove_bounds_handler(bounds_token);
    view->set_root(nullptr);
    if (shown_content) static_cast<void>(root->remove_child(shown_content));
    destroy_window();
}

void floater::set_content(INode* node) {
    content = node;
}

void floater::set_position(D2D_POINT_2F point) {
    position = point;
}

void floater::commit() {
    if (content != shown_content || !content) {
        exchange_content();
        show(placement());
    } else if (!same_point(position, shown_position)) {
        const floating_placement next = placement();
        if (!same_rect(next.rect, shown.rect) || !same_point(next.origin, wanted.origin)) show(next);
    }
    shown_position = position;
}

/// The former content is none any more even when the new one is refused: it may be set again then.
void floater::exchange_content() {
    if (const com::ptr<INode> former = std::exchange(shown_content, nullptr)) {
        static_cast<void>(root->remove_child(former));
    }
    root->add_child(content);
    shown_content = content;
}

void floater::show(const floating_placement& next) {
    if (!IsWindow(get_window_handle())) return;  // gone with its owner
    apply_origin(next.origin);
    wanted = next;
    shown.rect = next.rect;
    move_and_paint(next.rect);
}

void floater::invalidate(RECT) {
    apply_origin(wanted.origin);
    const RECT former = std::exchange(shown.rect, wanted.rect);
    if (same_rect(former, wanted.rect)) {
        redraw();
    } else if (same_size(former, wanted.rect)) {
        move(wanted.rect.left, wanted.rect.top);
    } else {
        move_and_paint(wanted.rect);
    }
}

/// Content without an area gets a pixel to be shown on: the platform has no bitmaps without one, and without
/// a bitmap the view would not tell of what comes next.
floating_placement floater::placement() {
    floating_placement placed = place_floating(root->get_bounds(true), position);
    placed.rect.right = std::max(placed.rect.right, placed.rect.left + 1);
    placed.rect.bottom = std::max(placed.rect.bottom, placed.rect.top + 1);
    return placed;
}

void floater::apply_origin(D2D_POINT_2F origin) {
    if (same_point(shown.origin, origin)) return;
    set_origin(origin);
    shown.origin = origin;
}

com::ptr<IMovableFloatingNode> create_floating_node(HWND parent, bool transparent, D2D_POINT_2F point,
                                                    INode* content) {
    return com::create_object<floater>(parent, transparent, point, content);
}

com::ptr<IMovableFloatingNode> create_floating_node(HWND parent, D2D_POINT_2F point, INode* content) {
    return create_floating_node(parent, false, point, content);
}

}  // namespace d2d::scene
