#pragma once

#include "com/base_object.h"
#include "d2d/scene/IFloatingNode.h"

#include <windows.h>

namespace d2d::scene {

/// Floats nodes above one window.
class floating_node_service : public com::base_object<com::object_base, IFloatingNode::IService> {
public:
    explicit floating_node_service(HWND works_for) noexcept : window(works_for) {}

    com::ptr<IFloatingNode> float_node(INode* context, INode* content) override;

protected:
    ~floating_node_service() = default;

private:
    HWND window;
};

}  // namespace d2d::scene
