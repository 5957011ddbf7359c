#pragma once

#include "com/base_object.h"
#include "com/ptr.h"
#include "d2d/layered_window_host.h"
#include "d2d/scene/IMovableFloatingNode.h"
#include "d2d/scene/IView.h"
#include "host/floating_placement.h"

namespace d2d::scene {

/// A floated node: the only child of a root of its own, shown by a layered window of the size of its bounds.
///
/// The node is tracked in two steps. A change of the root's bounds records where the window wants to be; the
/// invalidation of the view that every such change brings takes the window there, and paints. A move alone
/// paints nothing.
///
/// The window is made and ended by this class's own constructor and destructor, where the object is of this
/// class: the registered window class goes by the type. What fails in the course of construction is undone by
/// the destructor.
class floater : public com::base_object<com::object_base, IMovableFloatingNode>, public layered_window_host {
public:
    floater(HWND parent, bool transparent, D2D_POINT_2F point, INode* content_to_show);

    void set_content(INode* node) override;
    void set_position(D2D_POINT_2F point) override;
    void commit() override;

    void invalidate(RECT rect) override;

protected:
    ~floater();

private:
    floater(D2D_POINT_2F point, INode* content_to_show);

    [[nodiscard]] floating_placement placement();
    void apply_origin(D2D_POINT_2F origin);
    void exchange_content();
    void show(const floating_placement& next);

    com::ptr<IView> view;
    com::ptr<INode> root;
    D2D_POINT_2F shown_position;
    D2D_POINT_2F position;  // as asked for
    com::ptr<INode> shown_content;
    com::ptr<INode> content;     // as asked for
    floating_placement shown{};  // as applied to the window and the host
    floating_placement wanted{};
    INode::bounds_token bounds_token = nullptr;
};

}  // namespace d2d::scene
