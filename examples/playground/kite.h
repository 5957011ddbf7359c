#pragma once

#include "com/object.h"
#include "common/node.h"
#include "d2d/scene/IMovableFloatingNode.h"

namespace playground {

/// A picture that flies above its window, and beyond it, tied to a node inside.
class kite : public com::base_object<com::object_base, IUnknown> {
public:
    /// `knot` is a node of a window that shows.
    kite(const sketch::node& knot, const sketch::node& picture, HWND window);

    /// Flies where the knot is now.
    void follow();

protected:
    ~kite() = default;

private:
    sketch::node tied_to;
    HWND above;
    com::ptr<d2d::scene::IMovableFloatingNode> flown;
};

}  // namespace playground
