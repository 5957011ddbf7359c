#include "host/floating_node_service.h"

#include "com/check.h"
#include "com/object.h"
#include "d2d/scene/IDesktopPositionService.h"
#include "d2d/scene/IMovableFloatingNode.h"

#include <stdexcept>

#include <servprov.h>

namespace d2d::scene {

com::ptr<IFloatingNode> floating_node_service::float_node(INode* context, INode* content) {
    D2D_POINT_2F in_scene{};
    map_points(context, nullptr, &in_scene, 1);
    POINT client{};
    MapWindowPoints(window, nullptr, &client, 1);
    const D2D_POINT_2F on_screen{in_scene.x + static_cast<float>(client.x),
                                 in_scene.y + static_cast<float>(client.y)};
    const bool transparent = content && content->is_hit_transparent();
    return create_floating_node(window, transparent, on_screen, content);
}

com::ptr<IFloatingNode::IService> create_floating_node_service(HWND window) {
    return com::create_object<floating_node_service>(window);
}

com::ptr<IFloatingNode> IFloatingNode::float_node(INode* context, INode* content) {
    const com::ptr<IServiceProvider> provider(context);
    if (!provider) com::throw_error(E_POINTER);
    com::ptr<IService> service;
    com::check(
        provider->QueryService(com::guid_of<IService>(), com::guid_of<IService>(), service.put_void()));
    return service->float_node(context, content);
}

com::ptr<IDesktopPositionService> create_desktop_position_service(HWND) {
    throw std::logic_error("not implemented");
}

}  // namespace d2d::scene
