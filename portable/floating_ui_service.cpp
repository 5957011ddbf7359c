#include "portable/floating_ui_service.h"

#include "com/object.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace d2d::scene {
namespace {

/// No further than where the screen's position can still be added.
LONG to_integer(float side) noexcept {
    constexpr float greatest = 1073741824.0f;
    return std::isnan(side) ? 0 : static_cast<LONG>(std::clamp(side, -greatest, greatest));
}

/// The rectangle around a node, in the space above the root.
RECT rect_around(INode* node) {
    const D2D_RECT_F bounds = node->get_bounds(true);
    D2D_POINT_2F corners[]{{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
    map_points(node, nullptr, corners, 2);
    return {to_integer(std::floor(corners[0].x)), to_integer(std::floor(corners[0].y)),
            to_integer(std::ceil(corners[1].x)), to_integer(std::ceil(corners[1].y))};
}

}  // namespace

bool floating_ui_service::show_popup(INode* anchor, popup_details details) {
    details.anchor = rect_around(anchor);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&details.anchor), 2);
    return ui::mossHarbour::showPopupHwnd(window, false, std::move(details));
}

com::ptr<IFloatingUiService> create_floating_ui_service(HWND window) {
    return com::create_object<floating_ui_service>(window);
}

}  // namespace d2d::scene
