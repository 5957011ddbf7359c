#include "portable/modal_panel.h"

#include <stdexcept>

namespace ui::mossHarbour {

com::ptr<IHwndPanel> create_modal_panel(bool force_scene) {
    return force_scene ? create_d2d_hwnd_panel(nullptr) : create_hwnd_panel(nullptr);
}

SIZE preferred_window_size(IHwndPanel& panel) {
    constexpr LONG largest = 0x4000;
    const SIZE size = panel.get_window_sizes().preferred;
    if (size.cx < 1 || size.cx > largest || size.cy < 1 || size.cy > largest) {
        throw std::logic_error("Dialog layout resulted in an invalid size!");
    }
    return size;
}

void dispatch(IHwndPanel& panel, const MSG& message) {
    if (panel.translate_message(message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

}  // namespace ui::mossHarbour
