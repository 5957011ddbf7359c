#pragma once

#include "com/base_object.h"
#include "d2d/scene/IFloatingUiService.h"

namespace d2d::scene {

/// Popups above one window, which is borrowed.
class floating_ui_service : public com::base_object<com::object_base, IFloatingUiService> {
public:
    explicit floating_ui_service(HWND works_for) noexcept : window(works_for) {}

    // IFloatingUiService
    bool show_popup(INode* anchor, popup_details details) override;

protected:
    ~floating_ui_service() = default;

private:
    const HWND window;
};

}  // namespace d2d::scene
